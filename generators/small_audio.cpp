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
    // MPEG 2.5 layer III, 8 kHz, 8 kbit/s, mono. The first frame is a Xing header with the number of frames.
    constexpr int FRAME_SIZE = 72;
    constexpr double FRAME_SAMPLES = 576.0;
    constexpr int STORED_FRAMES = 28;
    const QByteArray header = QByteArray::fromHex("ffe318c0");
    const auto frames = static_cast<quint32>(seconds * SAMPLE_RATE / FRAME_SAMPLES);
    QByteArray content = header + QByteArray(9, '\0') + "Xing" + bigEndian<quint32>(1) + bigEndian(frames);
    content.append(FRAME_SIZE - content.size(), '\0');
    for (int i = 0; i < STORED_FRAMES; ++i)
        content += header + QByteArray(FRAME_SIZE - 4, '\0');
    return {content, frames * FRAME_SAMPLES / SAMPLE_RATE};
}

SmallAudio wav(double seconds)
{
    // Mono, 8 bits, eight samples per second.
    constexpr quint32 RATE = 8;
    const auto samples = static_cast<quint32>(seconds * RATE) & ~quint32{1};
    const QByteArray format = littleEndian<quint16>(1) + littleEndian<quint16>(1) + littleEndian(RATE) +
                              littleEndian(RATE) + littleEndian<quint16>(1) + littleEndian<quint16>(8);
    const QByteArray chunks = "WAVEfmt " + littleEndian(static_cast<quint32>(format.size())) + format +
                              "data" + littleEndian(samples) + QByteArray(samples, '\x80');
    return {"RIFF" + littleEndian(static_cast<quint32>(chunks.size())) + chunks, samples / double{RATE}};
}

/// Cyclic redundancy check, most significant bit first.
template <typename Sum>
Sum crc(const QByteArray &bytes, Sum polynomial)
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
    // Mono, 8 bits, frames of the largest size.
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
        bytes += bigEndian(crc<quint8>(bytes, 0x07));
        // A constant subframe: one sample for all.
        bytes += QByteArray(2, '\0');
        content += bytes + bigEndian(crc<quint16>(bytes, 0x8005));
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
    constexpr double MAX_SECONDS = 38.0;
    const auto frames = static_cast<int>(std::min(seconds, MAX_SECONDS) * SAMPLE_RATE / AAC_FRAME_SAMPLES);
    // ADTS header: low complexity, 8 kHz, mono, 13 bytes in all.
    const QByteArray frame = QByteArray::fromHex("fff16c4001bffc") + silentAacFrame();
    return {frame.repeated(frames), frames * AAC_FRAME_SAMPLES / SAMPLE_RATE};
}

QByteArray box(const char *type, const QByteArray &content)
{
    return bigEndian(static_cast<quint32>(content.size() + 8)) + QByteArray(type, 4) + content;
}

/// A box that starts with a version and flags (ISO 14496-12).
QByteArray fullBox(const char *type, const QByteArray &content, quint32 flags = 0)
{
    return box(type, bigEndian(flags) + content);
}

QByteArray zeros(int count)
{
    return QByteArray(count, '\0');
}

constexpr quint32 M4A_RATE = 8000;
constexpr quint32 M4A_FRAMES = 24;

/// Where the frames are and how long they last.
QByteArray sampleTable(quint32 ticksPerFrame, quint32 mediaOffset)
{
    const auto one = bigEndian<quint32>(1);
    const QByteArray decoder = QByteArray::fromHex("03190000000411401500000000001f4000001f40050215880601"
                                                   "02");
    const QByteArray sound = box("mp4a", zeros(6) + bigEndian<quint16>(1) + zeros(8) + bigEndian<quint16>(1) +
                                             bigEndian<quint16>(16) + zeros(4) +
                                             bigEndian<quint32>(M4A_RATE << 16) + fullBox("esds", decoder));
    const auto frameSize = static_cast<quint32>(silentAacFrame().size());
    return box("stbl", fullBox("stsd", one + sound) +
                           fullBox("stts", one + bigEndian(M4A_FRAMES) + bigEndian(ticksPerFrame)) +
                           fullBox("stsc", one + one + bigEndian(M4A_FRAMES) + one) +
                           fullBox("stsz", bigEndian(frameSize) + bigEndian(M4A_FRAMES)) +
                           fullBox("stco", one + bigEndian(mediaOffset)));
}

/// The index of a file with one track.
QByteArray movieBox(quint32 duration, const QByteArray &table)
{
    const QByteArray matrix =
        QByteArray::fromHex("000100000000000000000000000000000001000000000000000000000000"
                            "000040000000");
    const QByteArray language = QByteArray::fromHex("55c40000");
    const QByteArray reference = box("dinf", fullBox("dref", bigEndian<quint32>(1) + fullBox("url ", {}, 1)));
    const QByteArray media =
        box("mdia", fullBox("mdhd", zeros(8) + bigEndian(M4A_RATE) + bigEndian(duration) + language) +
                        fullBox("hdlr", zeros(4) + "soun" + zeros(13)) +
                        box("minf", fullBox("smhd", zeros(4)) + reference + table));
    constexpr quint32 ENABLED_IN_MOVIE = 3;
    const QByteArray track =
        box("trak", fullBox("tkhd",
                            zeros(8) + bigEndian<quint32>(1) + zeros(4) + bigEndian(duration) + zeros(12) +
                                QByteArray::fromHex("01000000") + matrix + zeros(8),
                            ENABLED_IN_MOVIE) +
                        media);
    return box("moov", fullBox("mvhd", zeros(8) + bigEndian(M4A_RATE) + bigEndian(duration) +
                                           QByteArray::fromHex("000100000100") + zeros(10) + matrix +
                                           zeros(24) + bigEndian<quint32>(2)) +
                           track);
}

SmallAudio m4a(double seconds)
{
    // A few frames that last for seconds each.
    const auto ticksPerFrame = static_cast<quint32>(seconds * M4A_RATE / M4A_FRAMES);
    const quint32 duration = ticksPerFrame * M4A_FRAMES;
    const QByteArray fileType = box("ftyp", QByteArray("M4A ") + zeros(4) + "M4A isom");
    const QByteArray media = box("mdat", silentAacFrame().repeated(static_cast<int>(M4A_FRAMES)));
    const auto mediaOffset = static_cast<quint32>(fileType.size() + 8);
    return {fileType + media + movieBox(duration, sampleTable(ticksPerFrame, mediaOffset)),
            duration / double{M4A_RATE}};
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
