#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/private_desktop.h"

#include <QElapsedTimer>

#include <csignal>
#include <gtest/gtest.h>

#include <optional>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int TIMEOUT_MS = 30'000;

/// The real program on one desktop for all tests.
class ProgramWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (desktop)
            return;
        try {
            desktop.emplace();
        } catch (const std::runtime_error &error) {
            if (qEnvironmentVariableIsSet("SONAVO_REQUIRE_DISPLAY"))
                FAIL() << error.what();
            GTEST_SKIP() << error.what();
        }
        // GLib gives up tables of names on purpose, and a scan that is cut short leaves everything as it is.
        qputenv("ASAN_OPTIONS", "detect_leaks=0");
    }
    static void TearDownTestSuite() { desktop.reset(); }

    void start(const QStringList &arguments = {})
    {
        m_program.start(QStringLiteral(SONAVO_PROGRAM), arguments);
    }
    void expectEnd()
    {
        ASSERT_TRUE(m_program.waitForFinished(TIMEOUT_MS));
        EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_program.exitCode(), 0);
        const QByteArray warnings = m_program.readAllStandardError();
        EXPECT_FALSE(HasFailure() || warnings.contains("qrc:")) << warnings.toStdString();
    }
    /// Waits until a screen reader is told something exactly once.
    [[nodiscard]] static bool hears(const QString &name)
    {
        return QTest::qWaitFor([&] { return desktop->accessibleNames().count(name) == 1; }, TIMEOUT_MS);
    }

    static inline std::optional<PrivateDesktop> desktop;
    QProcess m_program;
};

TEST_F(ProgramWindowTest, ScansWhatIsDraggedFromAnotherProgram)
{
    const MusicFolder music;
    music.addGroups({3});
    desktop->home().add(".config/sonavo/sonavo.conf", "[General]\nappTheme=dark\n");
    start();
    EXPECT_TRUE(hears(u"Switch to the light theme"_s)) << "the theme is remembered between runs";
    ASSERT_TRUE(hears(u"Drag & Drop Music Folder Here"_s));
    QProcess source;
    source.start(QStringLiteral(SONAVO_DRAG_SOURCE), {music.path()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return source.canReadLine(); }, TIMEOUT_MS));
    // Programs tell each other about each movement and answer it.
    EXPECT_TRUE(PrivateDesktop::xdotool(
        u"mousemove 20 20 mousedown 1 mousemove 25 25 mousemove 60 60 search --onlyvisible --name ^Sonavo$ "
        "mousemove --window %1 400 300 sleep 0.5 mousemove_relative 1 0 sleep 0.5 mouseup 1"_s));
    ASSERT_TRUE(source.waitForFinished(TIMEOUT_MS));
    EXPECT_EQ(source.exitCode(), 0) << "the files are copied, so that they stay";
    EXPECT_TRUE(hears(u"Group of 3 songs"_s));
    EXPECT_EQ(filesIn(music.path()).size(), 3);
    m_program.terminate();
    expectEnd();
}

TEST_F(ProgramWindowTest, EndsAtOnceDuringAScan)
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 20'000);
    // By two signals, by its own key, and by the window manager's for closing a window.
    for (const QString &end :
         {u"exec --sync kill -TERM %1"_s, u"exec --sync kill -INT %1"_s, u"key ctrl+q"_s, u"key alt+F4"_s}) {
        start({folder.path()});
        EXPECT_TRUE(hears(u"Cancel & Go Back"_s));
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(
            PrivateDesktop::xdotool(QString(end).replace(u"%1"_s, QString::number(m_program.processId()))));
        expectEnd();
        EXPECT_LT(timer.elapsed(), 5'000);
    }
}

} // namespace
} // namespace sonavo
