#include "desktop/system_desktop.h"
#include "testing/audio_fixtures.h"
#include "testing/sound_server.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::DoubleNear;
using testing::ElementsAre;
using Channel = SoundServer::Channel;

constexpr int PATIENCE_MS = 20'000;
constexpr double SONG_SECONDS = 50;

auto near(double seconds)
{
    return DoubleNear(seconds, 0.3);
}

/// A rising tone on one channel. From the third to the twelfth second there is noise, too, so that in most
/// formats the bit rate tells nothing about where in the file a second is.
void writeSong(const QString &path, Channel channel = Channel::Left, const QString &encoding = {})
{
    const QString tone =
        u"0.4*sin(2*PI*(%1*t+%2*t*t))+if(between(t\\,2\\,12)\\,0.5*(random(0)-0.5)\\,0)"_s.arg(PITCH_AT_START)
            .arg(PITCH_PER_SECOND / 2);
    const QString channels = channel == Channel::Left ? tone + u"|0"_s : u"0|"_s + tone;
    writeSound(path, channels + u":s=22050"_s, SONG_SECONDS, encoding);
}

bool isOpen(const QString &path)
{
    const QDir descriptors(u"/proc/self/fd"_s);
    const QStringList names = descriptors.entryList(QDir::Files | QDir::System);
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        return QFile::symLinkTarget(descriptors.filePath(name)) == path;
    });
}

bool isClosedSoon(const QString &path)
{
    return QTest::qWaitFor([&] { return !isOpen(path); }, PATIENCE_MS);
}

class PreviewPlayerTest : public testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<PreviewPlayer> open(const QString &name)
    {
        return m_desktop.openPreview(pathOf(name));
    }

    [[nodiscard]] std::unique_ptr<PreviewPlayer> openSong(const QString &name = u"song.flac"_s,
                                                          const QString &encoding = {})
    {
        writeSong(pathOf(name), Channel::Left, encoding);
        return open(name);
    }
    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    SystemDesktop m_desktop;
};

/// What the tests say about hearing is said about a recording.
class HeardPreviewTest : public PreviewPlayerTest
{
protected:
    void SetUp() override { startSoundOrSkip(m_sound); }

    [[nodiscard]] bool waitForStarts(std::size_t count, Channel channel = Channel::Left) const
    {
        return QTest::qWaitFor([&] { return m_sound->starts(channel).size() >= count; }, PATIENCE_MS);
    }

    [[nodiscard]] std::vector<double> starts(Channel channel = Channel::Left) const
    {
        return m_sound->starts(channel);
    }

    std::optional<SoundServer> m_sound;
};

/// A file name, and how it is encoded.
class FormatTest : public HeardPreviewTest,
                   public testing::WithParamInterface<std::pair<std::string, std::string>>
{};

TEST_P(FormatTest, PlaysFromTheBeginningAndFromExactlyAnySecond)
{
    const QString name = QString::fromStdString(GetParam().first);
    {
        const auto player = openSong(name, QString::fromStdString(GetParam().second));
        player->play();
        ASSERT_TRUE(waitForStarts(1));
        player->seek(47);
        ASSERT_TRUE(waitForStarts(2));
        player->seek(30);
        ASSERT_TRUE(waitForStarts(3));
    }
    ASSERT_TRUE(m_sound->becomesSilent());

    const auto player = open(name);
    player->seek(13);
    player->seek(45);
    player->play();
    ASSERT_TRUE(waitForStarts(4));
    EXPECT_THAT(starts(), ElementsAre(near(0), near(47), near(30), near(45)));
}

INSTANTIATE_TEST_SUITE_P(All, FormatTest,
                         testing::Values(std::pair("song.mp3", "-q:a 2 -write_xing 0"),
                                         std::pair("song.m4a", "-c:a aac"), std::pair("song.wav", ""),
                                         std::pair("song.aac", "-c:a aac -q:a 1.5"),
                                         std::pair("song.flac", "")));

TEST_F(HeardPreviewTest, PausesGoesOnAndIsAsLoudAsItIsTold)
{
    const auto player = openSong();
    EXPECT_TRUE(m_sound->staysSilent());
    player->setVolume(0);
    player->seek(18);
    player->play();
    EXPECT_TRUE(m_sound->staysSilent());
    player->setVolume(1);
    ASSERT_TRUE(waitForStarts(1));
    player->pause();
    ASSERT_TRUE(m_sound->becomesSilent());
    player->play();
    ASSERT_FALSE(m_sound->staysSilent());
    EXPECT_EQ(starts().size(), 1U);

    player->pause();
    ASSERT_TRUE(m_sound->becomesSilent());
    player->seek(13);
    EXPECT_TRUE(m_sound->staysSilent());
    player->play();
    ASSERT_TRUE(waitForStarts(2));
    EXPECT_THAT(starts(), ElementsAre(testing::Ge(17.7), near(13)));
    player->setVolume(0);
    EXPECT_TRUE(m_sound->becomesSilent());
}

TEST_F(HeardPreviewTest, StaysAtTheEndUntilItIsToGoElsewhere)
{
    const auto player = openSong();
    player->play();
    player->seek(49);
    ASSERT_TRUE(waitForStarts(1));
    ASSERT_TRUE(m_sound->becomesSilent());
    player->play();
    EXPECT_TRUE(m_sound->staysSilent());
    player->seek(17);
    ASSERT_TRUE(waitForStarts(2));
    player->seek(std::numeric_limits<qint64>::max());
    ASSERT_TRUE(m_sound->becomesSilent());
    player->seek(-1);
    ASSERT_TRUE(waitForStarts(3));
    EXPECT_THAT(starts(), ElementsAre(near(49), near(17), near(0)));
}

TEST_F(HeardPreviewTest, NeverPlaysTwoSongsAtOnce)
{
    writeSong(pathOf(u"left.wav"_s), Channel::Left);
    writeSong(pathOf(u"right.wav"_s), Channel::Right);
    std::size_t turn = 0;
    for (const qint64 second : {20, 17, 14}) {
        ++turn;
        for (const Channel channel : {Channel::Left, Channel::Right}) {
            const auto player = open(channel == Channel::Left ? u"left.wav"_s : u"right.wav"_s);
            player->seek(second);
            player->play();
            ASSERT_TRUE(waitForStarts(turn, channel));
            player->pause();
            player->releaseItem();
        }
    }
    EXPECT_THAT(starts(Channel::Left), ElementsAre(near(20), near(17), near(14)));
    EXPECT_THAT(starts(Channel::Right), ElementsAre(near(20), near(17), near(14)));
    EXPECT_FALSE(m_sound->hasHeardBothAtOnce());
}

TEST_F(HeardPreviewTest, CanBeDestroyedAtAnyMoment)
{
    writeSong(pathOf(u"left.mp3"_s), Channel::Left);
    writeSong(pathOf(u"right.m4a"_s), Channel::Right);
    for (int moment = 0; moment < 30; ++moment) {
        const auto player = open(u"right.m4a"_s);
        if (moment % 3 > 0)
            player->play();
        if (moment % 3 > 1)
            player->seek(moment);
        QTest::qWait(moment * 4);
    }
    const auto player = open(u"left.mp3"_s);
    player->play();
    ASSERT_TRUE(waitForStarts(1));
    EXPECT_THAT(starts(), ElementsAre(near(0)));
}

TEST_F(HeardPreviewTest, IsSilentAboutWhatCannotBePlayed)
{
    writeSound(pathOf(u"cut.m4a"_s), u"0.4*sin(2000*t):s=22050"_s, 2, u"-c:a aac"_s);
    ASSERT_TRUE(QFile::resize(pathOf(u"cut.m4a"_s), QFileInfo(pathOf(u"cut.m4a"_s)).size() / 2));
    writeFile(pathOf(u"empty.mp3"_s), {});
    writeFile(pathOf(u"broken.mp3"_s), QByteArray(100'000, '?'));
    writeFile(pathOf(u"broken.flac"_s), "fLaC" + QByteArray(100'000, '?'));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pathOf(u"fifo.mp3"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkdir(pathOf(u"folder.mp3"_s)));
    std::vector<std::unique_ptr<PreviewPlayer>> players;
    for (const QString &name : {u"cut.m4a"_s, u"empty.mp3"_s, u"broken.mp3"_s, u"broken.flac"_s,
                                u"fifo.mp3"_s, u"folder.mp3"_s, u"missing.mp3"_s}) {
        players.push_back(open(name));
        players.back()->play();
        players.back()->seek(1);
        players.back()->setVolume(0.5);
    }
    EXPECT_TRUE(m_sound->staysSilent());

    const auto player = openSong();
    player->play();
    ASSERT_TRUE(waitForStarts(1));
    EXPECT_THAT(starts(), ElementsAre(near(0)));
}

TEST_F(HeardPreviewTest, LetsGoOfTheFile)
{
    const QString name = u"100% #1? \"&'\n\u00e9\u4e00.flac"_s;
    const auto player = openSong(name);
    player->play();
    ASSERT_TRUE(QTest::qWaitFor([&] { return isOpen(pathOf(name)); }, PATIENCE_MS));
    player->releaseItem();
    EXPECT_TRUE(isClosedSoon(pathOf(name)));

    const auto unused = open(name);
    unused->releaseItem();
    auto next = open(name);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isOpen(pathOf(name)); }, PATIENCE_MS));
    next.reset();
    EXPECT_TRUE(isClosedSoon(pathOf(name)));
    // What is asked of a released player changes nothing.
    player->seek(1);
    player->play();
    EXPECT_FALSE(isOpen(pathOf(name)));
}

TEST_F(PreviewPlayerTest, DoesNotWaitForASoundServer)
{
    const QTemporaryDir folder;
    QLocalServer mute;
    ASSERT_TRUE(mute.listen(folder.filePath(u"native"_s)));
    qputenv("PULSE_SERVER", "unix:" + mute.fullServerName().toLocal8Bit());

    const auto player = openSong();
    player->play();
    ASSERT_TRUE(mute.waitForNewConnection(PATIENCE_MS));
    QElapsedTimer time;
    time.start();
    player->seek(3);
    player->setVolume(0);
    player->pause();
    player->releaseItem();
    EXPECT_LT(time.elapsed(), 5000);
}

} // namespace
} // namespace sonavo
