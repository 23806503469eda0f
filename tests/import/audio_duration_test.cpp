#include "import/audio_duration.h"
#include "libav_duration.h"
#include "testing/audio_fixtures.h"
#include "testing/open_watch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr double SECONDS = 5.3;
const QStringList TYPES{u"mp3"_s, u"m4a"_s, u"wav"_s, u"aac"_s, u"flac"_s};

using Encodings = std::pair<QString, QString>[];

std::optional<double> durationOf(const RegularFile &file, const std::stop_token &stop = {})
{
    const std::optional<Sound> sound = readSound(file, stop);
    return sound ? std::optional(sound->duration) : std::nullopt;
}

class ReadAudioDuration : public testing::Test
{
protected:
    ReadAudioDuration() { testing::internal::CaptureStderr(); }
    ~ReadAudioDuration() override { EXPECT_EQ(testing::internal::GetCapturedStderr(), ""); }

    QString write(const QString &name, const QByteArray &content) const
    {
        return writeFile(m_folder.filePath(name), content);
    }
    static void expectDuration(const QString &path, double seconds, ReadCounter *reads = nullptr)
    {
        EXPECT_NEAR(durationOf(RegularFile(path, reads)).value_or(-1), seconds, 0.06) << path.toStdString();
    }

    const QTemporaryDir m_folder;
};

TEST_F(ReadAudioDuration, TakesTheStoredLengthOrCountsAsLibavformatDoes)
{
    const Encodings cases = {
        {u"mp3"_s, u"-b:a 128k"_s},
        {u"mp3"_s, u"-q:a 4 -ar 48000 -ac 2"_s},
        {u"mp3"_s, u"-b:a 320k -ac 2 -write_xing 0"_s}, // one bit rate
        {u"mp3"_s, u"-b:a 256k -ar 48000 -ac 2 -write_xing 0"_s},
        {u"mp3"_s, u"-b:a 160k -ar 22050 -write_xing 0 -write_id3v1 1 -metadata title=Noise"_s},
        {u"mp3"_s, u"-q:a 1 -ac 2 -write_xing 0"_s},
        {u"m4a"_s, u"-c:a aac"_s},
        {u"m4a"_s, u"-c:a aac -use_editlist 0 -movflags +faststart"_s},
        {u"m4a"_s, u"-c:a aac -movflags +empty_moov+default_base_moof -frag_duration 1000000"_s},
        {u"m4a"_s, u"-c:a aac -movflags +frag_keyframe -frag_duration 1000000"_s},
        {u"wav"_s, u""_s},
        {u"wav"_s, u"-c:a pcm_s24le -ac 2 -rf64 always"_s},
        {u"wav"_s, u"-c:a pcm_f32le -seekable 0"_s}, // the header is written without a length
        {u"wav"_s, u"-c:a ac3"_s},
        {u"wav"_s, u"-c:a adpcm_ima_wav -seekable 0"_s},
        {u"wav"_s, u"-c:a libmp3lame -seekable 0"_s},
        {u"wav"_s, u"-c:a g726 -ar 8000 -ac 1 -seekable 0"_s}, // only its average rate tells the length
        {u"aac"_s, u"-ar 32000"_s},
        {u"flac"_s, u"-ar 96000 -ac 2"_s},
        {u"flac"_s, u"-seekable 0"_s},
    };
    for (const auto &[type, options] : cases) {
        for (const double length : {1.1, 11.3}) {
            SCOPED_TRACE((type + u' ' + options).toStdString());
            const QString path = write(u"x."_s + type, audioContent(type, length, options));
            const double duration = durationOf(RegularFile(path)).value_or(-1);
            EXPECT_EQ(duration, libavDuration(path));
            // Encoders add a frame or two at the start and pad the last one.
            EXPECT_NEAR(duration, length + 0.04, 0.05);
        }
    }
}

TEST_F(ReadAudioDuration, CountsFramesWithoutAHeaderAlsoBehindAPictureAndOfATruncatedFile)
{
    const Encodings cases = {
        {u"mp3"_s, u"-b:a 128k -write_xing 0"_s},
        {u"mp3"_s, u"-q:a 4 -write_xing 0 -id3v2_version 0 -write_id3v1 1 -metadata title=Noise"_s},
        {u"aac"_s, u""_s},
    };
    constexpr qsizetype TAG_SIZE = 10 + (0x20 << 14);
    // With a picture in it that contains frames.
    const QByteArray tag = QByteArray("ID3\4\0\0\0\x20\0\0", 10) + QByteArray(300'000, 'p') +
                           audioContent(u"mp3"_s, 2, u"-b:a 128k"_s);
    for (const auto &[type, options] : cases) {
        SCOPED_TRACE((type + u' ' + options).toStdString());
        const QByteArray content = audioContent(type, SECONDS, options);
        // Encoders add a frame or two at the start and pad the last one.
        const double whole = durationOf(RegularFile(write(u"x."_s + type, content))).value_or(-1);
        EXPECT_NEAR(whole, SECONDS + 0.07, 0.08);
        const QByteArray tagged = tag.leftJustified(TAG_SIZE, 'p', true) + content;
        EXPECT_EQ(durationOf(RegularFile(write(u"tagged."_s + type, tagged))), whole);
        const QByteArray half = content.first(content.size() / 2);
        const double rest = durationOf(RegularFile(write(u"half."_s + type, half))).value_or(-1);
        EXPECT_NEAR(rest, whole / 2, options.contains(u"-b:a") ? 0.05 : 0.8);
    }
}

TEST_F(ReadAudioDuration, CountsFlacFramesOfOneSamplingRateOnly)
{
    const QByteArray song = audioContent(u"flac"_s, SECONDS, u"-seekable 0"_s);
    expectDuration(write(u"x.flac"_s, song + audioContent(u"flac"_s, 2, u"-ar 192000 -seekable 0"_s)),
                   SECONDS);
    QByteArray damaged = song;
    // The sampling rate of the first metadata block.
    damaged[19] = '\x15';
    expectDuration(write(u"x.flac"_s, damaged), SECONDS);
}

TEST_F(ReadAudioDuration, LooksAtAFewFragmentsOfAnIndexAndAtAllWhereOneDoesNotFit)
{
    constexpr quint64 FEW_READS = 16;
    const QString options = u"-f mov -c:a pcm_s32le -ar 96000 -movflags +empty_moov -frag_duration 400000"_s;
    const QByteArray song = audioContent(u"m4a"_s, 11.3, options);
    const auto expectReads = [&](const QByteArray &content, bool areFew) {
        const QString path = write(u"x.m4a"_s, content);
        ReadCounter reads = 0;
        EXPECT_EQ(durationOf(RegularFile(path, &reads)), libavDuration(path));
        EXPECT_EQ(reads <= FEW_READS, areFew) << reads;
    };
    expectReads(song, true);
    expectReads(song + QByteArray(8, '\0'), false);
    // Its entries are two numbers of eight bytes and three of one, and a box of 16 bytes follows them.
    constexpr qsizetype ENTRY_SIZE = 19;
    const qsizetype lastEntry = song.size() - 16 - ENTRY_SIZE;
    for (const qsizetype number : {7, 15}) {
        QByteArray damaged = song;
        damaged[lastEntry + number] = static_cast<char>(damaged[lastEntry + number] ^ 1);
        expectReads(damaged, false);
    }
}

TEST_F(ReadAudioDuration, TellsByTheContentWhetherTheSoundIsLossless)
{
    const struct
    {
        QString type;
        QString options;
        bool isLossless;
    } cases[] = {
        {u"m4a"_s, u"-c:a alac"_s, true},
        {u"m4a"_s, u"-c:a alac -movflags +empty_moov+default_base_moof -frag_duration 1000000"_s, true},
        {u"m4a"_s, u"-c:a flac -f mp4 -strict -2"_s, true},
        {u"m4a"_s, u"-c:a aac"_s, false},
        {u"flac"_s, u""_s, true},
        {u"wav"_s, u"-c:a pcm_s24le -ac 2 -rf64 always"_s, true},
        {u"wav"_s, u"-c:a pcm_f32le"_s, true},
        {u"wav"_s, u"-c:a libmp3lame"_s, false},
        {u"wav"_s, u"-c:a pcm_alaw"_s, false},
        {u"mp3"_s, u""_s, false},
        {u"aac"_s, u""_s, false},
    };
    for (const auto &[type, options, isLossless] : cases) {
        const RegularFile file(write(u"x.mp3"_s, audioContent(type, 2, options)));
        EXPECT_EQ(readSound(file).value_or(Sound{0, !isLossless}).isLossless, isLossless)
            << (type + options).toStdString();
    }
}

TEST_F(ReadAudioDuration, HonoursEditListsButNoLengthOfThirtyYears)
{
    QByteArray content = audioContent(u"m4a"_s, SECONDS, u"-c:a alac"_s);
    // Its name, version and number of edits are followed by the length in milliseconds and the start in
    // samples.
    const qsizetype edit = content.indexOf("elst") + 12;
    ASSERT_EQ(content.mid(edit, 8).toHex(), "000014b400000000");
    content.replace(edit, 8, QByteArray::fromHex("000007d00000ac44"));
    expectDuration(write(u"cut.m4a"_s, content), 2.0);
    content.replace(edit, 8, QByteArray(8, '\0'));
    expectDuration(write(u"whole.m4a"_s, content), SECONDS);
    expectDuration(
        write(u"delayed.m4a"_s, audioContent(u"m4a"_s, SECONDS, u"-c:a aac -output_ts_offset 2.5"_s)),
        SECONDS + 2.5);
    // A FLAC header with one sample a second and the most samples that it can count.
    const QByteArray header = QByteArray::fromHex("664c614380000022ffffffff0000000000000000107fffffffff");
    expectDuration(write(u"x.flac"_s, header + QByteArray(16, '\0')), 0.0);
}

TEST_F(ReadAudioDuration, DoesNotBelieveAWaveThatStatesFewSamplesForEndlessData)
{
    QByteArray content = audioContent(u"wav"_s, SECONDS, u"-c:a adpcm_ima_wav -rf64 always"_s);
    constexpr qsizetype DATA_SIZE_OFFSET = 28;
    // A size whose product with eight overflows, and a hundred seconds.
    content.replace(DATA_SIZE_OFFSET, 16, QByteArray::fromHex("0000000000000040d04a430000000000"));
    expectDuration(write(u"x.wav"_s, content), SECONDS);
}

TEST_F(ReadAudioDuration, DetectsTheFormatUnderAnyExtensionAndGivesNothingOnceStopped)
{
    std::stop_source stop;
    stop.request_stop();
    for (const QString &type : TYPES) {
        const QByteArray content =
            audioContent(type, SECONDS, type == u"mp3" ? u"-q:a 4 -write_xing 0"_s : QString());
        for (const QString &extension : TYPES) {
            const QString path = write(type + u"_as."_s + extension, content);
            EXPECT_NEAR(durationOf(RegularFile(path)).value_or(0), SECONDS, 0.1) << path.toStdString();
            EXPECT_FALSE(durationOf(RegularFile(path), stop.get_token())) << path.toStdString();
        }
    }
}

TEST_F(ReadAudioDuration, GivesNothingForOtherContentAndOpensNoFileItRefersTo)
{
    const QString target = write(u"target.mp3"_s, audioContent(u"mp3"_s, 1));
    const QByteArray playlist = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:10\n#EXTINF:9,\n";
    const QByteArray contents[] = {
        "",
        QByteArray("RIFF fLaC ftypM4A Xing\n").repeated(5000),
        QByteArray(200'000, '\xFF'),
        audioContent(u"ogg"_s, 1, u"-c:a flac"_s),
        audioContent(u"mp4"_s, 1, u"-filter_complex showwaves=s=32x16[v] -map [v] -c:v mpeg4"_s),
        playlist + QFile::encodeName(target) + "\n#EXT-X-ENDLIST\n",
        "ffconcat version 1.0\nfile 'target.mp3'\n",
    };
    OpenWatch watch(target);
    for (const QByteArray &content : contents) {
        for (const QString &type : TYPES)
            EXPECT_FALSE(durationOf(RegularFile(write(u"x."_s + type, content))))
                << content.left(40).toStdString();
    }
    EXPECT_FALSE(watch.sawOpening());
    EXPECT_TRUE(durationOf(RegularFile(target)));
    EXPECT_TRUE(watch.sawOpening());
}

TEST_F(ReadAudioDuration, OpensOnlyRegularFiles)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(m_folder.filePath(u"pipe.mp3"_s)), 0600), 0);
    ASSERT_TRUE(QFile::link(u"pipe.mp3"_s, m_folder.filePath(u"link.wav"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, m_folder.filePath(u"device.mp3"_s)));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder.mp3"_s));
    OpenWatch watch(m_folder.path());
    for (const QString &name : {u"pipe.mp3"_s, u"link.wav"_s, u"device.mp3"_s, u"folder.mp3"_s})
        EXPECT_FALSE(durationOf(RegularFile(m_folder.filePath(name)))) << name.toStdString();
    EXPECT_FALSE(watch.sawOpening());
}

TEST_F(ReadAudioDuration, EndsSoonWhereNothingFollows)
{
    constexpr qint64 TERABYTE = qint64{1} << 40;
    constexpr quint64 MAX_READS = 60;
    const Encodings cases = {
        {u"mp3"_s, u"-b:a 128k"_s},
        {u"mp3"_s, u"-b:a 128k -write_xing 0"_s},
        {u"m4a"_s, u"-c:a aac"_s},
        {u"m4a"_s, u"-c:a aac -movflags +empty_moov -frag_duration 1000000"_s},
        {u"wav"_s, u""_s},
        {u"wav"_s, u"-c:a adpcm_ima_wav"_s},
        {u"aac"_s, u""_s},
        {u"flac"_s, u""_s},
        {u"flac"_s, u"-seekable 0"_s},
    };
    for (const auto &[type, options] : cases) {
        SCOPED_TRACE((type + u' ' + options).toStdString());
        const QString path = write(u"x."_s + type, audioContent(type, SECONDS, options));
        ASSERT_TRUE(QFile::resize(path, QFile(path).size() + 1));
        ASSERT_TRUE(QFile::resize(path, TERABYTE));
        ReadCounter reads = 0;
        expectDuration(path, SECONDS, &reads);
        EXPECT_LT(reads, MAX_READS);
    }
}

TEST_F(ReadAudioDuration, PassesOverPicturesAndStopsAtBoxesWithoutEnd)
{
    // A metadata block of 16 MB that is not the last one, and a box that is only a header.
    const QByteArray picture = QByteArray::fromHex("06ffffff");
    const QByteArray empty = QByteArray::fromHex("0000000866726565");
    constexpr int PICTURES = 40;
    const QByteArray content = audioContent(u"flac"_s, SECONDS, u"-seekable 0"_s);
    constexpr qsizetype FIRST_BLOCKS_END = 42;
    QFile file(write(u"x.flac"_s, content.first(FIRST_BLOCKS_END)));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    qint64 end = FIRST_BLOCKS_END;
    for (int i = 0; i < PICTURES; ++i, end += 4 + 0xFFFFFF)
        ASSERT_TRUE(file.seek(end) && file.write(picture) == picture.size());
    ASSERT_TRUE(file.seek(end) && file.write(content.sliced(FIRST_BLOCKS_END)) > 0 && file.flush());
    ReadCounter reads = 0;
    expectDuration(file.fileName(), SECONDS, &reads);
    EXPECT_LT(reads, 100U);

    const QByteArray song = audioContent(u"m4a"_s, 1.1);
    constexpr qsizetype FILE_TYPE_SIZE = 28;
    reads = 0;
    const QString boxes =
        write(u"x.m4a"_s, song.first(FILE_TYPE_SIZE) + empty.repeated(500'000) + song.sliced(FILE_TYPE_SIZE));
    EXPECT_FALSE(durationOf(RegularFile(boxes, &reads)));
    EXPECT_LT(reads, 100U);
}

} // namespace
} // namespace sonavo
