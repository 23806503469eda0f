#include "import/audio_duration.h"
#include "import/file_window.h"
#include "import/frame_count.h"
#include "import/regular_file.h"
#include "testing/audio_fixtures.h"

#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <random>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int RATE = 44100;
constexpr double FRAME = 1152.0 / RATE;

/// Frames of MPEG-1 layer III at 44.1 kHz.
enum class BitRate
{
    Low = 128'000,
    Middle = 160'000,
    High = 192'000
};
enum class Padding
{
    AsNeeded,
    Never
};

QByteArray frames(int count, BitRate rate = BitRate::Low, Padding padding = Padding::AsNeeded)
{
    const int bits = static_cast<int>(rate);
    const int index = rate == BitRate::Low ? 9 : rate == BitRate::Middle ? 10 : 11;
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        // Where the next frame starts, if their mean size is to be exact.
        const auto end = qint64{144} * bits * (i + 1) / RATE;
        const qint64 size = 144 * bits / RATE;
        const bool isPadded = padding == Padding::AsNeeded && end > bytes.size() + size;
        const std::array<char, 4> header{'\xFF', '\xFB', static_cast<char>(index << 4 | (isPadded ? 2 : 0)),
                                         0};
        bytes += QByteArray(header.data(), 4) + QByteArray(size - 4 + (isPadded ? 1 : 0), '\0');
    }
    return bytes;
}

QByteArray id3v2(const QByteArray &content)
{
    const auto size = static_cast<quint32>(content.size());
    QByteArray header("ID3\4\0\0....", 10);
    qToBigEndian((size & 0x7F) | (size << 1 & 0x7F00) | (size << 2 & 0x7F0000), header.data() + 6);
    return header + content;
}

const QByteArray ID3V1 = QByteArray("TAG").leftJustified(128, ' ');

class FrameCount : public testing::Test
{
protected:
    QString write(const QByteArray &content) const
    {
        return writeFile(m_folder.filePath(u"x.mp3"_s), content);
    }
    double duration(const QByteArray &content)
    {
        m_reads = 0;
        return readSound(RegularFile(write(content), &m_reads)).value_or(Sound{-1}).duration;
    }

    const QTemporaryDir m_folder;
    ReadCounter m_reads = 0;
};

TEST_F(FrameCount, CountsEveryFrameThatIsLeftAndNothingThatOnlyLooksLikeOne)
{
    const QByteArray ape = QByteArray("APETAGEX\xD0\x07\0\0", 12) +
                           QByteArray::fromHex("381000000100000000000"
                                               "0a00000000000000000") +
                           frames(9) + QByteArray(0x1038 - frames(9).size() - 32, 'a');
    const QByteArray zeros(5000, '\0');
    const struct
    {
        const char *what;
        QByteArray content;
        int count;
    } cases[] = {
        {"a gap", frames(20) + zeros + frames(20), 40},
        {"a single header in noise", frames(20) + QByteArray(700, 'x') + frames(1) + zeros + frames(20), 40},
        {"joined songs", frames(20) + ID3V1 + id3v2(QByteArray(9, 'p') + frames(9)) + frames(20), 40},
        {"a tag behind noise", frames(20) + zeros + id3v2(frames(9)) + frames(20), 40},
        {"a tag at the end", frames(20) + ape, 20},
        {"missing bytes", frames(20).chopped(200) + frames(20), 40},
        {"a last frame that is cut off", frames(20).chopped(400), 20},
        {"a last header that is cut off", frames(20) + "\xFF\xFB\x90", 20},
        {"two bit rates", frames(20) + frames(20, BitRate::High), 40},
        {"nothing for nearly a megabyte", frames(20) + QByteArray(1'000'000, '\0') + frames(20), 40},
        {"nothing for more than a megabyte", frames(20) + QByteArray(1'100'000, '\0') + frames(20), 20},
        {"a tag that is longer than it says", id3v2("x") + zeros + frames(20), 20},
    };
    for (const auto &[what, content, count] : cases)
        EXPECT_NEAR(duration(content), count * FRAME, 1e-9) << what;
}

TEST_F(FrameCount, AddsUpRandomStreamsExactly)
{
    std::mt19937 random(1);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 60; ++round) {
        QByteArray content = frames(4);
        int count = 4;
        for (int part = below(12); part > 0; --part) {
            const int length = 2 + below(200);
            switch (below(4)) {
            case 0:
                content += QByteArray(length * 100, '\0');
                break;
            case 1:
                content += id3v2(frames(length % 9));
                break;
            default:
                content += frames(length,
                                  std::array{BitRate::Low, BitRate::Middle,
                                             BitRate::High}[static_cast<std::size_t>(below(3))],
                                  below(2) == 0 ? Padding::AsNeeded : Padding::Never);
                count += length;
            }
        }
        const RegularFile file(write(content));
        FileWindow window(file, {});
        const std::optional<FrameTime> time = countFrames(window, Framing::Mpeg, 0, content.size());
        ASSERT_TRUE(time);
        EXPECT_NEAR(time->seconds(), count * FRAME, 1e-9) << "round " << round;
    }
}

TEST_F(FrameCount, LooksAtAFewFramesOfAConstantBitRateAndAtAllWhereOneIsElsewhere)
{
    constexpr int COUNT = 5000;
    constexpr int HALF = COUNT / 2;
    constexpr quint64 FEW_READS = 8;
    for (const QByteArray &end : {QByteArray(), ID3V1}) {
        EXPECT_NEAR(duration(frames(COUNT) + end), COUNT * FRAME, 1e-9);
        EXPECT_LE(m_reads, FEW_READS);
        EXPECT_NEAR(duration(id3v2("x") + frames(COUNT).chopped(100)), COUNT * FRAME, 1e-9);
        EXPECT_LE(m_reads, FEW_READS);
    }
    const QByteArray others[] = {
        frames(HALF) + frames(HALF, BitRate::High),
        frames(HALF) + frames(9, BitRate::Middle) + frames(HALF - 9),
        // As long as a whole number of the other frames, so that those behind it lie where they would.
        frames(1470) + frames(980, BitRate::High) + frames(COUNT - 1470 - 980),
        frames(HALF) + id3v2(QByteArray(1000, 'p')) + frames(HALF),
        frames(COUNT, BitRate::Low, Padding::Never),
        frames(COUNT) + QByteArray(1000, '\0'),
    };
    for (const QByteArray &content : others) {
        EXPECT_NEAR(duration(content), COUNT * FRAME, 1e-9);
        EXPECT_GT(m_reads, FEW_READS);
    }
}

} // namespace
} // namespace sonavo
