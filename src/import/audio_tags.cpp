#include "import/audio_tags.h"

#include "import/file_window.h"

#include <QtEndian>

#include <cstring>
#include <string_view>

namespace sonavo {
namespace {

using Bytes = std::span<const std::uint8_t>;

bool startsWith(Bytes bytes, std::string_view text)
{
    return bytes.size() >= text.size() && std::memcmp(bytes.data(), text.data(), text.size()) == 0;
}

std::optional<qint64> id3v2Size(Bytes bytes)
{
    constexpr std::size_t HEADER_SIZE = 10;
    constexpr std::uint8_t FOOTER_FLAG = 0x10;
    if (bytes.size() < HEADER_SIZE || !startsWith(bytes, "ID3") || bytes[3] == 0xFF || bytes[4] == 0xFF)
        return std::nullopt;
    qint64 size = 0;
    for (const std::uint8_t digit : bytes.subspan(6, 4)) {
        if (digit >= 0x80)
            return std::nullopt;
        size = size << 7 | digit;
    }
    const bool hasFooter = (bytes[5] & FOOTER_FLAG) != 0;
    return size + static_cast<qint64>(HEADER_SIZE) * (hasFooter ? 2 : 1);
}

std::optional<qint64> apeSize(Bytes bytes)
{
    constexpr std::size_t HEADER_SIZE = 32;
    constexpr std::uint32_t IS_HEADER = 1U << 29;
    if (bytes.size() < HEADER_SIZE || !startsWith(bytes, "APETAGEX"))
        return std::nullopt;
    // The size counts all but the header; a footer, which nothing follows, has the flag cleared.
    const auto size = qFromLittleEndian<std::uint32_t>(&bytes[12]);
    const bool isHeader = (qFromLittleEndian<std::uint32_t>(&bytes[20]) & IS_HEADER) != 0;
    return static_cast<qint64>(HEADER_SIZE) + (isHeader ? size : 0);
}

} // namespace

std::optional<qint64> tagSizeAt(FileWindow &window, qint64 offset)
{
    constexpr std::size_t LONGEST_HEADER = 32;
    constexpr qint64 ID3V1_SIZE = 128;
    const Bytes bytes = window.at(offset, LONGEST_HEADER);
    if (const std::optional<qint64> size = id3v2Size(bytes))
        return size;
    if (const std::optional<qint64> size = apeSize(bytes))
        return size;
    if (startsWith(bytes, "TAG"))
        return ID3V1_SIZE;
    return std::nullopt;
}

qint64 skipId3Tags(FileWindow &window)
{
    constexpr int MAX_TAGS = 8;
    constexpr std::size_t HEADER_SIZE = 10;
    qint64 offset = 0;
    for (int tag = 0; tag < MAX_TAGS; ++tag) {
        const std::optional<qint64> size = id3v2Size(window.at(offset, HEADER_SIZE));
        if (!size)
            break;
        offset += *size;
    }
    return offset;
}

} // namespace sonavo
