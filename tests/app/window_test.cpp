#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/private_desktop.h"
#include "testing/screen_reader.h"
#include "testing/sound_server.h"

#include <QColor>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int PATIENCE_MS = 30'000;

bool waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, PATIENCE_MS);
}

/// The real program on a desktop of its own, used with the mouse and keyboard, and looked at as a screen
/// reader and the eye do.
class ProgramWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        try {
            m_desktop.start();
            m_reader.emplace(m_desktop.busAddress());
        } catch (const std::runtime_error &error) {
            if (qEnvironmentVariableIsSet("SONAVO_REQUIRE_DISPLAY"))
                FAIL() << error.what();
            GTEST_SKIP() << error.what();
        }
    }

    void TearDown() override
    {
        if (!m_program)
            return;
        if (m_program->state() != QProcess::NotRunning) {
            m_program->terminate();
            expectEnd();
        }
        const QByteArray complaints = m_program->readAllStandardError();
        EXPECT_FALSE(HasFailure() || complaints.contains("qrc:")) << complaints.toStdString();
    }

    void start(const QStringList &arguments = {})
    {
        m_program = m_desktop.newProcess(QStringLiteral(SONAVO_PROGRAM), arguments);
        m_program->start();
        ASSERT_TRUE(m_program->waitForStarted(PATIENCE_MS));
    }

    void expectEnd()
    {
        ASSERT_TRUE(m_program->waitForFinished(PATIENCE_MS));
        EXPECT_EQ(m_program->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_program->exitCode(), 0);
    }

    /// All of a kind with a name, from top to bottom.
    [[nodiscard]] QList<QRect> placesOf(const QString &role, const QString &name) const
    {
        QList<QRect> places;
        for (const ScreenReader::Node &node : m_reader->read(u"sonavo"_s)) {
            if (node.role == role && node.name == name)
                places.push_back(m_reader->placeOf(node));
        }
        std::ranges::sort(places, {}, &QRect::y);
        return places;
    }

    /// Waits until something is to be seen, and in the same place for two looks.
    [[nodiscard]] QRect placeOf(const QString &role, const QString &name) const
    {
        QRect place;
        EXPECT_TRUE(waitFor([&] {
            const QRect before = std::exchange(place, placesOf(role, name).value(0));
            return !place.isEmpty() && place == before;
        })) << "no "
            << role.toStdString() << " " << name.toStdString();
        return place;
    }

    void click(const QString &role, const QString &name) const
    {
        EXPECT_TRUE(m_desktop.click(placeOf(role, name).center()));
    }

    [[nodiscard]] bool waitForBackground(const QColor &color) const
    {
        const QPoint corner = placeOf(u"frame"_s, u"Sonavo"_s).bottomLeft() + QPoint(10, -10);
        return waitFor([&] { return m_desktop.pixelAt(corner) == color; });
    }

    PrivateDesktop m_desktop;
    std::optional<ScreenReader> m_reader;
    std::unique_ptr<QProcess> m_program;
};

const QColor LIGHT_BACKGROUND(0xFA, 0xF9, 0xF6);
const QColor DARK_BACKGROUND(0x1C, 0x1C, 0x1E);

TEST_F(ProgramWindowTest, ScansWhatIsDraggedFromAnotherProgram)
{
    start();
    const QDir folder(m_desktop.homePath() + u"/Music"_s);
    ASSERT_TRUE(folder.mkpath(u"."_s));
    for (const QString &song : filesIn(QStringLiteral(SONAVO_SAMPLES)))
        ASSERT_TRUE(QFile::copy(song, folder.filePath(QFileInfo(song).fileName())));
    const QStringList songs = folder.entryList(QDir::Files);

    const QRect zone = placeOf(u"label"_s, u"Drag & Drop Music Folder Here"_s);
    const QPoint besideText(zone.left() - 15, zone.center().y());
    const QColor unlit = m_desktop.pixelAt(besideText);
    const auto source = m_desktop.newProcess(QStringLiteral(SONAVO_DRAG_SOURCE), {folder.path()});
    source->start();
    ASSERT_TRUE(waitFor([&] { return source->canReadLine(); }));
    ASSERT_TRUE(
        m_desktop.xdotool(u"mousemove 20 20 mousedown 1 mousemove 25 25 mousemove 60 60"_s.split(u' ')));
    int step = 0;
    EXPECT_TRUE(waitFor([&] {
        const QPoint point = zone.center() + QPoint(++step % 2, 0);
        EXPECT_TRUE(
            m_desktop.xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y())}));
        return m_desktop.pixelAt(besideText) != unlit;
    })) << "the drop zone lights up under the files";
    ASSERT_TRUE(m_desktop.xdotool({u"mouseup"_s, u"1"_s}));
    ASSERT_TRUE(source->waitForFinished(PATIENCE_MS));
    EXPECT_EQ(source->exitCode(), 0) << "the files stay where they are";

    EXPECT_FALSE(placeOf(u"list"_s, u"Duplicate songs"_s).isEmpty());
    EXPECT_FALSE(placeOf(u"push button"_s, u"Group of 3 songs"_s).isEmpty());
    EXPECT_EQ(folder.entryList(QDir::Files), songs);
}

/// Where the files are, told by the last folders of their paths.
QStringList placesOfSongs(const QString &root)
{
    QStringList places = filesIn(root).filter(QRegularExpression(u"flac$"_s));
    for (QString &place : places)
        place.remove(0, root.size() + 1);
    return places;
}

TEST_F(ProgramWindowTest, CleansUpAfterListening)
{
    std::optional<SoundServer> sound;
    startSoundOrSkip(sound);
    if (!sound)
        return;
    m_desktop.setVariable(u"PULSE_SERVER"_s, qEnvironmentVariable("PULSE_SERVER"));
    // GLib gives up tables of names on purpose, because another thread can be reading them.
    m_desktop.setVariable(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
    const QString music = m_desktop.homePath() + u"/Music"_s;
    const QString target = m_desktop.homePath() + u"/Target"_s;
    for (const QString &folder : {target, music + u"/a"_s, music + u"/b"_s, music + u"/c"_s})
        ASSERT_TRUE(QDir().mkpath(folder));
    const QString tone =
        u"0.4*sin(2*PI*(%1*t+%2*t*t)):s=22050"_s.arg(PITCH_AT_START).arg(PITCH_PER_SECOND / 2);
    writeSound(music + u"/a/Ada - One.flac"_s, tone, 20, {});
    for (const QString &copy : {u"/b/"_s, u"/c/"_s})
        ASSERT_TRUE(QFile::copy(music + u"/a/Ada - One.flac"_s, music + copy + u"Ada - One.flac"_s));
    start({music});

    const QString play = u"Click to listen and verify this song"_s;
    ASSERT_TRUE(waitFor([&] { return placesOf(u"push button"_s, play).size() == 3; }));
    EXPECT_TRUE(m_desktop.click(placesOf(u"push button"_s, play)[1].center()));
    EXPECT_TRUE(waitFor([&] { return !sound->starts().empty(); }))
        << "the song is to be heard";

    EXPECT_TRUE(m_desktop.click(placesOf(u"push button"_s, u"Delete this song"_s).back().center()));
    EXPECT_TRUE(waitFor([&] { return placesOf(u"push button"_s, play).size() == 2; }));
    EXPECT_FALSE(placeOf(u"label"_s, u"1 duplicates"_s).isEmpty());
    click(u"push button"_s, u"Move Duplicates"_s);
    EXPECT_TRUE(sound->becomesSilent()) << "the song that is to be moved plays no longer";
    EXPECT_FALSE(placeOf(u"push button"_s, u"Select Folder"_s).isEmpty());
    EXPECT_TRUE(m_desktop.xdotool({u"type"_s, target}));
    EXPECT_TRUE(m_desktop.xdotool({u"key"_s, u"Return"_s}));
    EXPECT_FALSE(placeOf(u"heading"_s, u"Perfect! No Duplicates Found"_s).isEmpty());
    EXPECT_FALSE(placeOf(u"label"_s, u"1 songs scanned"_s).isEmpty());

    const QStringList folders = QDir(target).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_EQ(folders.size(), 1);
    EXPECT_EQ(placesOfSongs(target), QStringList{folders[0] + u"/Ada - One.flac"_s});
    EXPECT_EQ(placesOfSongs(music), QStringList{u"a/Ada - One.flac"_s});
    EXPECT_EQ(placesOfSongs(m_desktop.homePath()).filter(u"Trash/files/"_s).size(), 1);

    const auto reader = m_desktop.newProcess(QStringLiteral(SONAVO_CLIPBOARD_READER));
    reader->start();
    ASSERT_TRUE(waitFor([&] { return reader->state() == QProcess::NotRunning; }));
    EXPECT_EQ(QString::fromUtf8(reader->readAllStandardOutput()), target + u'/' + folders[0]);
}

TEST_F(ProgramWindowTest, KeepsTheThemeAndQuitsByTheMenu)
{
    start();
    EXPECT_TRUE(waitForBackground(LIGHT_BACKGROUND));
    click(u"push button"_s, u"Switch to the dark theme"_s);
    EXPECT_TRUE(waitForBackground(DARK_BACKGROUND));
    click(u"menu bar"_s, u"File"_s);
    click(u"menu item"_s, u"Quit"_s);
    expectEnd();

    start();
    EXPECT_TRUE(waitForBackground(DARK_BACKGROUND));
    EXPECT_FALSE(placeOf(u"push button"_s, u"Switch to the light theme"_s).isEmpty());
}

TEST_F(ProgramWindowTest, EndsAtOnceDuringAScan)
{
    // What is at work when the program is to end is left as it is.
    m_desktop.setVariable(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
    const QString folder = m_desktop.homePath() + u"/many"_s;
    fillWithSongs(folder, 20'000);
    const std::function<void()> endings[] = {
        [this] { ::kill(static_cast<pid_t>(m_program->processId()), SIGTERM); },
        [this] { ::kill(static_cast<pid_t>(m_program->processId()), SIGINT); },
        // The window manager's key for closing a window.
        [this] {
            (void)m_desktop.xdotool({u"key"_s, u"alt+F4"_s});
        },
    };
    for (const auto &end : endings) {
        start({folder});
        EXPECT_FALSE(placeOf(u"push button"_s, u"Cancel & Go Back"_s).isEmpty());
        QElapsedTimer timer;
        timer.start();
        end();
        expectEnd();
        EXPECT_LT(timer.elapsed(), 5'000);
    }
}

} // namespace
} // namespace sonavo
