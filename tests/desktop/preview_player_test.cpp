#include "desktop/system_desktop.h"
#include "testing/audio_fixtures.h"
#include "testing/sound_server.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

auto near(double seconds)
{
    return testing::DoubleNear(seconds, 0.3);
}

/// What is heard is what a sound server of the test's own records.
class PreviewPlayerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        try {
            m_sound.emplace();
        } catch (const std::runtime_error &error) {
            if (qEnvironmentVariableIsSet("SONAVO_REQUIRE_SOUND"))
                FAIL() << error.what();
            GTEST_SKIP() << error.what();
        }
    }

    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] auto open(const QString &name) { return m_desktop.openPreview(pathOf(name)); }

    /// Noise from second 2 to 12 makes the bit rate of most formats vary, so that a position in the file does
    /// not tell the time.
    [[nodiscard]] auto openSong(const QString &name = u"song.flac"_s, const QString &encoding = {})
    {
        const QString song =
            u"%1*sin(2*PI*(%2*t+%3*t*t))+if(between(t\\,2\\,12)\\,0.5*(random(0)-0.5)\\,0):s=22050"_s;
        writeSound(pathOf(name), song.arg(PEAK).arg(PITCH_AT_START).arg(PITCH_PER_SECOND / 2), 50, encoding);
        return open(name);
    }

    /// Waits until a song starts or jumps.
    /// @return to which second of the song
    [[nodiscard]] double nextStart()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_sound->starts().size() > m_startCount; }, 20'000));
        return m_sound->starts().at(m_startCount++);
    }

    static constexpr double PEAK = 0.4;
    std::optional<SoundServer> m_sound;

private:
    QTemporaryDir m_folder;
    SystemDesktop m_desktop;
    std::size_t m_startCount = 0;
};

/// A file name and ffmpeg's options for it.
class PreviewFormatTest : public PreviewPlayerTest, public testing::WithParamInterface<std::string>
{};

TEST_P(PreviewFormatTest, PlaysFromTheBeginningAndFromExactlyAnySecond)
{
    const QString parameter = QString::fromStdString(GetParam());
    const QString name = parameter.section(u' ', 0, 0);
    auto player = openSong(name, parameter.section(u' ', 1));
    player->play();
    EXPECT_THAT(nextStart(), near(0));
    player->seek(47);
    EXPECT_THAT(nextStart(), near(47));
    player.reset();
    ASSERT_TRUE(m_sound->becomesSilent());

    player = open(name);
    player->seek(13); // before the file is loaded; the last seek counts
    player->seek(30);
    player->play();
    EXPECT_THAT(nextStart(), near(30));
}

INSTANTIATE_TEST_SUITE_P(All, PreviewFormatTest,
                         testing::Values("song.mp3 -q:a 2 -write_xing 0", "song.m4a -c:a aac", "song.wav",
                                         "song.aac -c:a aac -q:a 1.5", "song.flac"));

TEST_F(PreviewPlayerTest, KnowsWhereItIsWhileItPlays)
{
    const auto player = openSong();
    player->seek(20);
    EXPECT_EQ(player->position(), 20.0) << "at once";
    player->play();
    EXPECT_THAT(nextStart(), near(20));
    QElapsedTimer time;
    time.start();
    QTest::qWait(1500);
    const double position = player->position();
    EXPECT_GT(position, 21.0);
    EXPECT_LT(position, 20.0 + static_cast<double>(time.elapsed()) / 1000 + 1.0);
    player->pause();
    QTest::qWait(300);
    const double paused = player->position();
    QTest::qWait(300);
    EXPECT_EQ(player->position(), paused);
    EXPECT_LT(paused, position + 1.0);
}

TEST_F(PreviewPlayerTest, ObeysPauseAndVolume)
{
    const auto player = openSong();
    EXPECT_TRUE(m_sound->staysSilent());
    player->setVolume(0);
    player->seek(18);
    player->play();
    EXPECT_TRUE(m_sound->staysSilent());
    player->setVolume(1);
    EXPECT_GT(nextStart(), 17.7);
    player->pause();
    EXPECT_TRUE(m_sound->becomesSilent());
    player->play();
    EXPECT_FALSE(m_sound->staysSilent());
    EXPECT_EQ(m_sound->starts().size(), 1U); // no jump
}

TEST_F(PreviewPlayerTest, StaysAtTheEndUntilASeek)
{
    const auto player = openSong();
    player->seek(49);
    player->play();
    EXPECT_THAT(nextStart(), near(49));
    ASSERT_TRUE(m_sound->becomesSilent());
    player->play();
    EXPECT_TRUE(m_sound->staysSilent());
    player->seek(17);
    EXPECT_THAT(nextStart(), near(17));
    player->seek(std::numeric_limits<qint64>::max());
    ASSERT_TRUE(m_sound->becomesSilent());
    player->seek(-1);
    EXPECT_THAT(nextStart(), near(0));
}

TEST_F(PreviewPlayerTest, CanBeDestroyedAtAnyTimeAndIsSilentBeforeTheNextIsHeard)
{
    // Without its noise, whose peaks would be taken for two songs at once if a busy machine lets one play on.
    auto player = openSong(u"song.flac"_s, u"-ss 13"_s);
    for (int i = 0; i < 40; ++i) {
        player = nullptr;
        player = open(u"song.flac"_s);
        if (i % 3 > 0)
            player->seek(i);
        if (i % 2 > 0)
            player->play();
        QTest::qWait(i * 8);
    }
    // Under load none of them may have played long enough to be heard.
    player->seek(1);
    player->play();
    EXPECT_GE(nextStart(), 0);
    EXPECT_LT(m_sound->peak(), 1.2 * PEAK); // two songs at once would be louder
}

TEST_F(PreviewPlayerTest, IsSilentIfTheFileCannotBePlayed)
{
    writeFile(pathOf(u"broken.flac"_s), "fLaC" + QByteArray(100'000, '?'));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pathOf(u"fifo.mp3"_s)).constData(), 0600), 0);
    std::vector<std::unique_ptr<PreviewPlayer>> players;
    for (const QString &name : {u"broken.flac"_s, u"fifo.mp3"_s, u"missing.mp3"_s}) {
        players.push_back(open(name));
        players.back()->play();
        players.back()->seek(1);
    }
    EXPECT_TRUE(m_sound->staysSilent());
    players.push_back(openSong());
    players.back()->play();
    EXPECT_THAT(nextStart(), near(0));
}

TEST_F(PreviewPlayerTest, ClosesTheFileWhenReleasedOrDestroyed)
{
    const QString name = u"100% #1? \"&'\n\u00e9\u4e00.flac"_s;
    const auto becomesOpen = [&](bool isOpen) {
        return QTest::qWaitFor(
            [&] {
                const auto files = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::AllEntries | QDir::System);
                return isOpen == std::ranges::count(files, pathOf(name), &QFileInfo::symLinkTarget);
            },
            20'000);
    };
    for (const bool isReleased : {true, false}) {
        auto player = openSong(name);
        EXPECT_TRUE(becomesOpen(true));
        if (isReleased)
            player->releaseItem();
        else
            player.reset();
        EXPECT_TRUE(becomesOpen(false));
    }
}

TEST_F(PreviewPlayerTest, DoesNotWaitForASoundServerThatHangs)
{
    QLocalServer mute;
    ASSERT_TRUE(mute.listen(pathOf(u"native"_s)));
    qputenv("PULSE_SERVER", "unix:" + mute.fullServerName().toLocal8Bit());
    auto player = openSong();
    player->play();
    ASSERT_TRUE(mute.waitForNewConnection(20'000));
    QElapsedTimer time;
    time.start();
    player->pause();
    player->releaseItem();
    player.reset();
    EXPECT_LT(time.elapsed(), 5000);
}

} // namespace
} // namespace sonavo
