#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/private_desktop.h"
#include "testing/screen_reader.h"

#include <QElapsedTimer>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int TIMEOUT_MS = 30'000;

/// The real program on a desktop of its own, with a screen reader that tells what is shown.
class ProgramWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        try {
            m_desktop.emplace();
            m_reader.emplace(m_desktop->busAddress());
        } catch (const std::runtime_error &error) {
            if (qEnvironmentVariableIsSet("SONAVO_REQUIRE_DISPLAY"))
                FAIL() << error.what();
            GTEST_SKIP() << error.what();
        }
        // GLib gives up tables of names on purpose, and a scan that is cut short leaves everything as it is.
        qputenv("ASAN_OPTIONS", "detect_leaks=0");
    }
    void TearDown() override
    {
        if (m_program.state() != QProcess::NotRunning) {
            m_program.terminate();
            expectEnd();
        }
        const QByteArray warnings = m_program.readAllStandardError();
        EXPECT_FALSE(HasFailure() || warnings.contains("qrc:")) << warnings.toStdString();
    }

    void start(const QStringList &arguments = {})
    {
        m_program.start(QStringLiteral(SONAVO_PROGRAM), arguments);
    }
    void expectEnd()
    {
        ASSERT_TRUE(m_program.waitForFinished(TIMEOUT_MS));
        EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_program.exitCode(), 0);
    }
    /// Waits until the screen reader says something exactly once.
    [[nodiscard]] bool hears(const QString &name) const
    {
        return QTest::qWaitFor([&] { return m_reader->names(u"sonavo"_s).count(name) == 1; }, TIMEOUT_MS);
    }

    std::optional<PrivateDesktop> m_desktop;
    std::optional<ScreenReader> m_reader;
    QProcess m_program;
};

TEST_F(ProgramWindowTest, ScansWhatIsDraggedFromAnotherProgram)
{
    const MusicFolder music;
    music.addGroups({3});
    m_desktop->home().add(".config/sonavo/sonavo.conf", "[General]\nappTheme=dark\n");
    start();
    EXPECT_TRUE(hears(u"Switch to the light theme"_s)) << "the theme is remembered between runs";
    ASSERT_TRUE(hears(u"Drag & Drop Music Folder Here"_s));
    QProcess source;
    source.start(QStringLiteral(SONAVO_DRAG_SOURCE), {music.path()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return source.canReadLine(); }, TIMEOUT_MS));
    // Programs tell each other about each movement and answer it.
    EXPECT_TRUE(PrivateDesktop::xdotool(
        u"mousemove 20 20 mousedown 1 mousemove 25 25 mousemove 60 60 search --onlyvisible --name ^Sonavo$ "
        "mousemove --window %1 400 300 sleep 0.5 mousemove_relative 1 0 sleep 0.5 mouseup 1"_s.split(u' ')));
    ASSERT_TRUE(source.waitForFinished(TIMEOUT_MS));
    EXPECT_EQ(source.exitCode(), 0) << "the files are copied, so that they stay";
    EXPECT_TRUE(hears(u"Group of 3 songs"_s));
    EXPECT_EQ(filesIn(music.path()).size(), 3);
}

TEST_F(ProgramWindowTest, EndsAtOnceDuringAScan)
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 20'000);
    const auto signal = [this](int number) {
        return ::kill(static_cast<pid_t>(m_program.processId()), number) == 0;
    };
    const std::function<bool()> endings[] = {
        [&] { return signal(SIGTERM); },
        [&] { return signal(SIGINT); },
        [] {
            return PrivateDesktop::xdotool({u"key"_s, u"ctrl+q"_s});
        },
        // The window manager's key for closing a window.
        [] {
            return PrivateDesktop::xdotool({u"key"_s, u"alt+F4"_s});
        },
    };
    for (const auto &end : endings) {
        start({folder.path()});
        EXPECT_TRUE(hears(u"Cancel & Go Back"_s));
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(end());
        expectEnd();
        EXPECT_LT(timer.elapsed(), 5'000);
    }
}

} // namespace
} // namespace sonavo
