#include "import/mp4_boxes.h"

#include "import/file_window.h"

#include <QtEndian>

#include <algorithm>
#include <limits>

namespace sonavo {
namespace {

using Bytes = std::span<const std::uint8_t>;

} // namespace

std::uint64_t BoxFields::number(std::size_t bytes)
{
    std::uint64_t value = 0;
    const Bytes field = m_offset < m_end ? m_window.at(m_offset, bytes) : Bytes();
    if (field.size() < bytes)
        m_offset = m_end;
    else
        for (const std::uint8_t byte : field.first(bytes))
            value = value << 8 | byte;
    m_offset += static_cast<qint64>(bytes);
    return value;
}

qint64 BoxFields::time(std::size_t bytes)
{
    constexpr auto MAX = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    return static_cast<qint64>(std::min(number(bytes), MAX));
}

std::optional<Box> Boxes::next()
{
    constexpr int MAX_UNWANTED = 4096;
    constexpr std::size_t HEADER_SIZE = 8;
    constexpr std::size_t LONG_HEADER_SIZE = 16;
    if (m_next >= m_end || ++m_unwanted > MAX_UNWANTED)
        return std::nullopt;
    const Bytes header = m_window.at(m_next, LONG_HEADER_SIZE);
    if (header.size() < HEADER_SIZE)
        return std::nullopt;
    std::uint64_t size = qFromBigEndian<std::uint32_t>(header.data());
    std::size_t headerSize = HEADER_SIZE;
    const auto left = static_cast<std::uint64_t>(m_end - m_next);
    if (size == 1 && header.size() >= LONG_HEADER_SIZE) {
        size = qFromBigEndian<std::uint64_t>(&header[HEADER_SIZE]);
        headerSize = LONG_HEADER_SIZE;
    } else if (size == 0) {
        size = left;
    }
    if (size < headerSize)
        return std::nullopt;
    const Box box{qFromBigEndian<BoxType>(&header[4]), m_next + static_cast<qint64>(headerSize),
                  m_next + static_cast<qint64>(std::min(size, left))};
    m_next = box.end;
    return box;
}

} // namespace sonavo
