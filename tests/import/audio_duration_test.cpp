#include "import/audio_duration.h"
#include "testing/audio_fixtures.h"
#include "testing/open_watch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <random>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr double SECONDS = 5.3;
constexpr double TOLERANCE = 0.05;
const QStringList TYPES{u"mp3"_s, u"m4a"_s, u"wav"_s, u"aac"_s, u"flac"_s};

struct Encoding
{
    QString type;
    QString options = {};
};

void expectDuration(const QString &path, double seconds)
{
    const std::optional<double> duration = readAudioDuration(path);
    ASSERT_TRUE(duration) << path.toStdString();
    EXPECT_NEAR(*duration, seconds, TOLERANCE) << path.toStdString();
}

void expectUnreadable(const QString &path)
{
    const std::optional<double> duration = readAudioDuration(path);
    EXPECT_FALSE(duration) << path.toStdString() << " reads as " << *duration << " seconds";
}

QByteArray randomBytes(unsigned seed, qsizetype size)
{
    std::mt19937 random(seed);
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

QByteArray bigEndian32(qsizetype number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(static_cast<quint32>(number), bytes.data());
    return bytes;
}

/// An ID3v2.3 tag with a picture in it.
QByteArray pictureTag(const QByteArray &picture)
{
    const QByteArray frame = QByteArray("\0image/jpeg\0\3\0", 14) + picture;
    const QByteArray frames = "APIC" + bigEndian32(frame.size()) + QByteArray(2, '\0') + frame;
    QByteArray tag("ID3\3\0\0", 6);
    for (const int shift : {21, 14, 7, 0})
        tag += static_cast<char>(frames.size() >> shift & 0x7F);
    return tag + frames;
}

/// An M4A file, its index at the end, whose sound is said to be in another file.
QByteArray withSoundIn(const QByteArray &path, QByteArray m4a)
{
    const qsizetype index = m4a.lastIndexOf("moov");
    const qsizetype reference = m4a.indexOf("url ", index) - 4;
    const QByteArray alias = "alis" + QByteArray(154, '\0') + QByteArray("\0\2", 2) +
                             bigEndian32(path.size()).last(2) + path + QByteArray(path.size() % 2, '\0') +
                             QByteArray("\xFF\xFF\0\0", 4);
    const QByteArray entry = bigEndian32(alias.size() + 4) + alias;
    m4a.replace(reference, 12, entry);
    for (const char *box : {"moov", "trak", "mdia", "minf", "dinf", "dref"}) {
        const qsizetype size = m4a.indexOf(box, index) - 4;
        const auto old = qFromBigEndian<quint32>(m4a.constData() + size);
        m4a.replace(size, 4, bigEndian32(old + entry.size() - 12));
    }
    return m4a;
}

TEST(ReadAudioDuration, CountsTheFramesOfMpegAudioWithoutHeaderAlsoOfWhatIsLeftOfIt)
{
    const QTemporaryDir folder;
    const Encoding cases[] = {
        {u"mp3"_s, u"-b:a 128k -write_xing 0"_s},
        {u"mp3"_s, u"-q:a 4 -write_xing 0"_s},
        {u"mp3"_s, u"-q:a 4 -write_xing 0 -id3v2_version 0 -write_id3v1 1 -metadata title=Noise"_s},
        {u"mp3"_s, u"-q:a 6 -ar 22050 -write_xing 0"_s},
        {u"aac"_s, u""_s},
        {u"aac"_s, u"-ar 22050"_s},
    };
    for (const auto &[type, options] : cases) {
        SCOPED_TRACE((type + u' ' + options).toStdString());
        const QString path = folder.filePath(u"x."_s + type);
        writeAudio(path, SECONDS, options);
        // Encoders put a frame or two in front and fill the last one.
        ASSERT_NEAR(frameSeconds(path), SECONDS + 0.07, 0.08);
        expectDuration(path, frameSeconds(path));
        ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
        expectDuration(path, frameSeconds(path));
    }
}

/// What the header says is the length of the song, without the encoder's delay.
TEST(ReadAudioDuration, TakesTheLengthFromTheHeaderOfEveryFormat)
{
    const QTemporaryDir folder;
    const Encoding cases[] = {
        {u"mp3"_s, u"-b:a 128k"_s},
        {u"mp3"_s, u"-q:a 6 -ar 22050"_s},
        {u"mp3"_s, u"-q:a 4 -ar 48000 -ac 2"_s},
        {u"m4a"_s, u"-c:a aac"_s},
        {u"m4a"_s, u"-c:a alac -movflags +faststart"_s},
        {u"m4a"_s, u"-c:a aac -movflags +empty_moov+default_base_moof -frag_duration 1000000"_s},
        {u"m4a"_s, u"-c:a alac -movflags +empty_moov -frag_duration 1000000"_s},
        {u"wav"_s, u""_s},
        {u"wav"_s, u"-c:a pcm_f32le -ar 48000 -ac 2"_s},
        {u"wav"_s, u"-rf64 always"_s},
        {u"wav"_s, u"-c:a adpcm_ima_wav"_s},
        {u"wav"_s, u"-c:a adpcm_ms"_s},
        {u"flac"_s, u""_s},
        {u"flac"_s, u"-ar 96000 -ac 2"_s},
    };
    for (const auto &[type, options] : cases) {
        SCOPED_TRACE((type + u' ' + options).toStdString());
        const QString path = folder.filePath(u"x."_s + type);
        for (const double length : {1.1, SECONDS}) {
            writeAudio(path, length, options);
            expectDuration(path, length);
        }
    }
}

TEST(ReadAudioDuration, CountsPacketsWhereTheLengthWasNotKnownWhenTheFileWasBegun)
{
    const QTemporaryDir folder;
    for (const QString &type : {u"wav"_s, u"flac"_s}) {
        const QString path = folder.filePath(u"x."_s + type);
        const QByteArray content = pipedAudioContent(type, SECONDS);
        ASSERT_NE(content, audioContent(type, SECONDS));
        writeFile(path, content);
        expectDuration(path, SECONDS);
    }
}

TEST(ReadAudioDuration, IsTheLengthOfThePresentationWhereAnEditListCutsOrDelays)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"x.m4a"_s);
    const QByteArray whole = audioContent(u"m4a"_s, SECONDS, u"-c:a alac"_s);
    // Behind its name: version, number of edits, then length in milliseconds and start in samples.
    const qsizetype edit = whole.indexOf("elst") + 12;
    ASSERT_EQ(whole.mid(edit, 8), bigEndian32(5300) + bigEndian32(0));
    QByteArray cut = whole;
    writeFile(path, cut.replace(edit, 8, bigEndian32(2000) + bigEndian32(44100)));
    expectDuration(path, 2.0);

    writeFile(path, audioContent(u"m4a"_s, SECONDS, u"-c:a aac -output_ts_offset 2.5"_s));
    expectDuration(path, SECONDS + 2.5);
}

TEST(ReadAudioDuration, DoesNotBelieveInSongsLongerThanALife)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"x.wav"_s);
    // One sample a second and all the samples that 64 bits can count, of MPEG audio, which has no size to
    // compare.
    const QByteArray counts = QByteArray(16, '\0') + QByteArray(7, '\xFF') + '\x7F' + QByteArray(4, '\0');
    const QByteArray format("\x55\0\1\0\1\0\0\0\xE8\3\0\0\1\0\0\0\0\0", 18);
    const QByteArray frame = QByteArray("\xFF\xFB\x90\0", 4) + QByteArray(413, '\0');
    writeFile(path, QByteArray("RF64\xFF\xFF\xFF\xFFWAVEds64\x1C\0\0\0", 20) + counts +
                        QByteArray("fmt \x12\0\0\0", 8) + format + "data\xFF\xFF\xFF\xFF" + frame);
    EXPECT_EQ(readAudioDuration(path), 0.0);
}

TEST(ReadAudioDuration, IsNotMisledByAPictureInFrontOfTheSound)
{
    const QTemporaryDir folder;
    QByteArray picture = randomBytes(1, 1'000'000);
    picture.replace(1000, 20'000, audioContent(u"mp3"_s, 2, u"-b:a 128k"_s).left(20'000));
    for (const auto &[type, options] :
         {Encoding{u"mp3"_s, u"-q:a 4"_s}, {u"mp3"_s, u"-q:a 4 -write_xing 0"_s}, {u"aac"_s}}) {
        SCOPED_TRACE((type + u' ' + options).toStdString());
        const QString path = folder.filePath(u"x."_s + type);
        writeAudio(path, SECONDS, options);
        const double truth = frameSeconds(path);
        writeFile(path, pictureTag(picture) + audioContent(type, SECONDS, options));
        expectDuration(path, truth);
    }
}

TEST(ReadAudioDuration, ReadsAFileUnderAnotherExtensionForWhatItIs)
{
    const QTemporaryDir folder;
    for (const QString &type : TYPES) {
        for (const QString &name : TYPES) {
            const QString path = folder.filePath(type + u"_as."_s + name);
            writeFile(path,
                      audioContent(type, SECONDS, type == u"mp3" ? u"-q:a 4 -write_xing 0"_s : QString()));
            EXPECT_NEAR(readAudioDuration(path).value_or(0), SECONDS, 0.1) << path.toStdString();
        }
    }
}

TEST(ReadAudioDuration, GivesNothingForWhatIsNoAudioAndSaysNothing)
{
    const QTemporaryDir folder;
    QList<QByteArray> contents{
        "",
        "ID3",
        "Lorem ipsum dolor sit amet.\n",
        QByteArray("RIFF fLaC ftypM4A Xing\n").repeated(5000),
        QByteArray(200'000, '\0'),
        QByteArray(200'000, '\xFF'),
        pictureTag(audioContent(u"mp3"_s, 1)),
        audioContent(u"ogg"_s, 1, u"-c:a flac"_s),
        audioContent(u"aiff"_s, 1),
        audioContent(u"mka"_s, 1, u"-c:a aac"_s),
        audioContent(u"mp4"_s, 1, u"-filter_complex showwaves=s=32x16[v] -map [v] -c:v mpeg4"_s),
    };
    for (const qsizetype size : {1, 10, 500, 20'000, 300'000}) {
        for (unsigned seed = 0; seed < 10; ++seed)
            contents += randomBytes(seed, size);
    }
    testing::internal::CaptureStderr();
    for (qsizetype i = 0; i < contents.size(); ++i) {
        for (const QString &type : TYPES) {
            const QString path = folder.filePath(u"content_%1."_s.arg(i) + type);
            writeFile(path, contents[i]);
            expectUnreadable(path);
            QFile::remove(path);
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ReadAudioDuration, SurvivesCutAndDamagedFilesAndSaysNothing)
{
    const QTemporaryDir folder;
    std::mt19937 random(7);
    for (const QString &type : TYPES) {
        const QString path = folder.filePath(u"x."_s + type);
        const QByteArray whole = audioContent(type, 2);
        testing::internal::CaptureStderr();
        for (int round = 0; round < 60; ++round) {
            QByteArray content = whole;
            if (round % 2 == 0) {
                content.truncate(static_cast<qsizetype>(random()) % (round % 4 == 0 ? 200 : whole.size()));
            } else {
                for (int i = 0; i < 8; ++i)
                    content[static_cast<qsizetype>(random()) % (i % 2 == 0 ? 100 : whole.size())] ^=
                        static_cast<char>(1 + random() % 255);
            }
            writeFile(path, content);
            const double duration = readAudioDuration(path).value_or(0);
            EXPECT_TRUE(std::isfinite(duration) && duration >= 0) << type.toStdString() << ' ' << round;
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << type.toStdString();
    }
}

TEST(ReadAudioDuration, NeverOpensOrWaitsForWhatIsNoRegularFile)
{
    const QTemporaryDir folder;
    const auto named = [&](const QString &name) { return QFile::encodeName(folder.filePath(name)); };
    ASSERT_EQ(::mkfifo(named(u"pipe.mp3"_s), 0600), 0);
    ASSERT_EQ(::mknod(named(u"socket.m4a"_s), S_IFSOCK | 0600, 0), 0);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"folder.mp3"_s));
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, folder.filePath(u"device.mp3"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, folder.filePath(u"null.aac"_s)));
    ASSERT_TRUE(QFile::link(u"pipe.mp3"_s, folder.filePath(u"pipe_link.wav"_s)));
    ASSERT_TRUE(QFile::link(u"nowhere"_s, folder.filePath(u"broken.flac"_s)));
    ASSERT_TRUE(QFile::link(u"loop.mp3"_s, folder.filePath(u"loop.mp3"_s)));
    testing::internal::CaptureStderr();
    for (const QString &name :
         {u"pipe.mp3"_s, u"socket.m4a"_s, u"folder.mp3"_s, u"device.mp3"_s, u"null.aac"_s, u"pipe_link.wav"_s,
          u"broken.flac"_s, u"loop.mp3"_s, u"vanished.mp3"_s, u"pipe.mp3/inside.mp3"_s})
        expectUnreadable(folder.filePath(name));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ReadAudioDuration, FollowsNoReferenceToAnotherFileOrAddress)
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(u"target.mp3"_s);
    writeAudio(target, 1);
    const QByteArray name = QFile::encodeName(target);
    const QByteArray playlist = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:10\n#EXTINF:9,\n";
    const QByteArray manifests[] = {
        playlist + name + "\n#EXT-X-ENDLIST\n",
        playlist + "target.mp3\n#EXT-X-ENDLIST\n",
        playlist + "http://127.0.0.1:9/target.mp3\n#EXT-X-ENDLIST\n",
        "ffconcat version 1.0\nfile 'target.mp3'\n",
        "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\nm=audio 5004 RTP/AVP 14\n",
    };
    const QByteArray referring = withSoundIn(name, audioContent(u"m4a"_s, SECONDS));
    testing::internal::CaptureStderr();
    OpenWatch watch(target);
    for (const QString &type : TYPES) {
        const QString path = folder.filePath(u"manifest."_s + type);
        for (const QByteArray &manifest : manifests) {
            writeFile(path, manifest);
            expectUnreadable(path);
        }
        writeFile(path, referring);
        EXPECT_LE(readAudioDuration(path).value_or(0), SECONDS + TOLERANCE);
    }
    EXPECT_EQ(watch.count(), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    // The watch does see an opening.
    expectDuration(target, frameSeconds(target));
    EXPECT_GT(watch.count(), 0);
}

TEST(ReadAudioDuration, GivesNothingOnceStopped)
{
    const QTemporaryDir folder;
    std::stop_source stop;
    stop.request_stop();
    for (const QString &type : TYPES) {
        const QString path = folder.filePath(u"x."_s + type);
        writeAudio(path);
        EXPECT_TRUE(readAudioDuration(path)) << type.toStdString();
        EXPECT_FALSE(readAudioDuration(path, stop.get_token())) << type.toStdString();
    }
}

} // namespace
} // namespace sonavo
