#include "generators/small_audio.h"

#include <QtEndian>

#include <algorithm>
#include <stdexcept>

namespace sonavo {
namespace {

constexpr double SAMPLE_RATE = 8000.0;

template <typename Integer>
QByteArray bigEndian(Integer value)
{
    QByteArray bytes(sizeof(Integer), '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

template <typename Integer>
QByteArray littleEndian(Integer value)
{
    QByteArray bytes(sizeof(Integer), '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

SmallAudio mp3(double seconds)
{
    // MPEG 2.5 layer III, 8 kHz, 8 kbit/s, mono. The first frame tells how many there are.
    constexpr int FRAME_SIZE = 72;
    constexpr double FRAME_SAMPLES = 576.0;
    constexpr int FRAMES_IN_FILE = 28;
    const QByteArray header = QByteArray::fromHex("ffe318c0");
    const auto frames = static_cast<quint32>(seconds * SAMPLE_RATE / FRAME_SAMPLES);
    QByteArray content = header + QByteArray(9, '\0') + "Xing" + bigEndian<quint32>(1) + bigEndian(frames);
    content.append(FRAME_SIZE - content.size(), '\0');
    for (int i = 0; i < FRAMES_IN_FILE; ++i)
        content += header + QByteArray(FRAME_SIZE - 4, '\0');
    return {content, frames * FRAME_SAMPLES / SAMPLE_RATE};
}

SmallAudio wav(double seconds)
{
    // Eight samples a second.
    constexpr quint32 RATE = 8;
    const auto samples = static_cast<quint32>(seconds * RATE) & ~quint32{1};
    const QByteArray format = littleEndian<quint16>(1) + littleEndian<quint16>(1) + littleEndian(RATE) +
                              littleEndian(RATE) + littleEndian<quint16>(1) + littleEndian<quint16>(8);
    const QByteArray chunks = "WAVEfmt " + littleEndian(static_cast<quint32>(format.size())) + format +
                              "data" + littleEndian(samples) + QByteArray(samples, '\x80');
    return {"RIFF" + littleEndian(static_cast<quint32>(chunks.size())) + chunks, samples / double{RATE}};
}

/// Cyclic redundancy check, highest bit first.
template <typename Sum>
Sum checkSum(const QByteArray &bytes, Sum polynomial)
{
    constexpr int TOP = 8 * sizeof(Sum) - 1;
    Sum sum = 0;
    for (const char byte : bytes) {
        sum = static_cast<Sum>(sum ^ (static_cast<Sum>(static_cast<quint8>(byte)) << (TOP - 7)));
        for (int bit = 0; bit < 8; ++bit) {
            const bool isSet = (sum >> TOP & 1) != 0;
            sum = static_cast<Sum>(sum << 1);
            if (isSet)
                sum = static_cast<Sum>(sum ^ polynomial);
        }
    }
    return sum;
}

SmallAudio flac(double seconds)
{
    // Mono, 8 bits, as many samples to a frame as there can be.
    constexpr quint64 FRAME_SAMPLES = 65535;
    const auto samples = static_cast<quint64>(seconds * SAMPLE_RATE);
    const quint64 stream = quint64{8000} << 44 | quint64{7} << 36 | samples;
    QByteArray content = "fLaC" + QByteArray::fromHex("80000022ffffffff000000000000") + bigEndian(stream) +
                         QByteArray(16, '\0');
    quint64 left = samples;
    for (int frame = 0; left > 0; ++frame) {
        const quint64 count = std::min(left, FRAME_SAMPLES);
        QByteArray bytes = QByteArray::fromHex("fff87402");
        if (frame < 0x80) {
            bytes += static_cast<char>(frame);
        } else {
            bytes += static_cast<char>(0xC0 | frame >> 6);
            bytes += static_cast<char>(0x80 | (frame & 0x3F));
        }
        bytes += bigEndian(static_cast<quint16>(count - 1));
        bytes += bigEndian(checkSum<quint8>(bytes, 0x07));
        // One sample that stands for all.
        bytes += QByteArray(2, '\0');
        content += bytes + bigEndian(checkSum<quint16>(bytes, 0x8005));
        left -= count;
    }
    return {content, static_cast<double>(samples) / SAMPLE_RATE};
}

constexpr double AAC_FRAME_SAMPLES = 1024.0;

QByteArray silentAacFrame()
{
    return QByteArray::fromHex("00c800802380");
}

SmallAudio aac(double seconds)
{
    constexpr double LONGEST = 38.0;
    const auto frames = static_cast<int>(std::min(seconds, LONGEST) * SAMPLE_RATE / AAC_FRAME_SAMPLES);
    // Low complexity, 8 kHz, mono, 13 bytes with this header.
    const QByteArray frame = QByteArray::fromHex("fff16c4001bffc") + silentAacFrame();
    return {frame.repeated(frames), frames * AAC_FRAME_SAMPLES / SAMPLE_RATE};
}

QByteArray box(const char *type, const QByteArray &content)
{
    return bigEndian(static_cast<quint32>(content.size() + 8)) + QByteArray(type, 4) + content;
}

/// A box that begins with version and flags.
QByteArray fullBox(const char *type, const QByteArray &content, quint32 flags = 0)
{
    return box(type, bigEndian(flags) + content);
}

SmallAudio m4a(double seconds)
{
    // Each of the few frames stays for a long time.
    constexpr quint32 FRAMES = 24;
    constexpr quint32 RATE = 8000;
    const auto perFrame = static_cast<quint32>(seconds * RATE / FRAMES);
    const quint32 duration = perFrame * FRAMES;
    const auto zeros = [](int count) { return QByteArray(count, '\0'); };
    const QByteArray matrix =
        QByteArray::fromHex("000100000000000000000000000000000001000000000000000000000000"
                            "000040000000");

    const QByteArray fileType = box("ftyp", QByteArray("M4A ") + zeros(4) + "M4A isom");
    const QByteArray media = box("mdat", silentAacFrame().repeated(static_cast<int>(FRAMES)));
    const auto mediaStart = static_cast<quint32>(fileType.size() + 8);

    const QByteArray decoder = QByteArray::fromHex("03190000000411401500000000001f4000001f40050215880601"
                                                   "02");
    const QByteArray sound = box("mp4a", zeros(6) + bigEndian<quint16>(1) + zeros(8) + bigEndian<quint16>(1) +
                                             bigEndian<quint16>(16) + zeros(4) +
                                             bigEndian<quint32>(RATE << 16) + fullBox("esds", decoder));
    const QByteArray table =
        box("stbl", fullBox("stsd", bigEndian<quint32>(1) + sound) +
                        fullBox("stts", bigEndian<quint32>(1) + bigEndian(FRAMES) + bigEndian(perFrame)) +
                        fullBox("stsc", bigEndian<quint32>(1) + bigEndian<quint32>(1) + bigEndian(FRAMES) +
                                            bigEndian<quint32>(1)) +
                        fullBox("stsz", bigEndian(static_cast<quint32>(silentAacFrame().size())) +
                                            bigEndian(FRAMES)) +
                        fullBox("stco", bigEndian<quint32>(1) + bigEndian(mediaStart)));
    const QByteArray reference = box("dinf", fullBox("dref", bigEndian<quint32>(1) + fullBox("url ", {}, 1)));
    const QByteArray information = box("minf", fullBox("smhd", zeros(4)) + reference + table);
    const QByteArray language = QByteArray::fromHex("55c40000");
    const QByteArray mediaBox =
        box("mdia", fullBox("mdhd", zeros(8) + bigEndian(RATE) + bigEndian(duration) + language) +
                        fullBox("hdlr", zeros(4) + "soun" + zeros(13)) + information);
    const QByteArray track =
        box("trak", fullBox("tkhd",
                            zeros(8) + bigEndian<quint32>(1) + zeros(4) + bigEndian(duration) + zeros(12) +
                                QByteArray::fromHex("01000000") + matrix + zeros(8),
                            3) +
                        mediaBox);
    const QByteArray movie = box("moov", fullBox("mvhd", zeros(8) + bigEndian(RATE) + bigEndian(duration) +
                                                             QByteArray::fromHex("000100000100") + zeros(10) +
                                                             matrix + zeros(24) + bigEndian<quint32>(2)) +
                                             track);
    return {fileType + media + movie, duration / SAMPLE_RATE};
}

} // namespace

SmallAudio smallAudio(const QString &type, double seconds)
{
    if (type == QStringLiteral("MP3"))
        return mp3(seconds);
    if (type == QStringLiteral("M4A"))
        return m4a(seconds);
    if (type == QStringLiteral("WAV"))
        return wav(seconds);
    if (type == QStringLiteral("AAC"))
        return aac(seconds);
    if (type == QStringLiteral("FLAC"))
        return flac(seconds);
    throw std::invalid_argument("no small audio of type " + type.toStdString());
}

} // namespace sonavo
