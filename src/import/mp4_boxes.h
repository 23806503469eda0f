#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace sonavo {

class FileWindow;

/// Four characters.
using BoxType = std::uint32_t;

consteval BoxType boxType(std::string_view name)
{
    BoxType type = 0;
    for (const char character : name)
        type = type << 8 | static_cast<BoxType>(character);
    return type;
}

/// A box of an MPEG-4 file (ISO/IEC 14496-12, 4.2) without its header.
struct Box
{
    BoxType type = 0;
    qint64 begin = 0;
    qint64 end = 0;
};

/// Reads the fields of a box one after the other, as zeros behind its end.
class BoxFields
{
public:
    BoxFields(FileWindow &window, const Box &box)
        : m_window(window)
        , m_offset(box.begin)
        , m_end(box.end)
    {}

    void skip(qint64 bytes) { m_offset += bytes; }
    /// @param bytes 1 to 8
    std::uint64_t number(std::size_t bytes);
    std::uint32_t number32() { return static_cast<std::uint32_t>(number(4)); }
    /// Limited to the largest signed number.
    /// @param bytes 1 to 8
    qint64 time(std::size_t bytes);
    /// The version of a full box, behind which come its flags.
    unsigned version() { return static_cast<unsigned>(number(1)); }
    std::uint32_t flags() { return static_cast<std::uint32_t>(number(3)); }

    /// How many entries of a table follow at most.
    /// @param size of an entry in bytes, 1 or more
    [[nodiscard]] qint64 entriesLeft(qint64 size) const
    {
        return m_offset < m_end ? (m_end - m_offset) / size : 0;
    }

private:
    FileWindow &m_window;
    qint64 m_offset;
    const qint64 m_end;
};

/// The boxes between two offsets, at most 4096 of them in a row that nobody wants.
class Boxes
{
public:
    Boxes(FileWindow &window, qint64 begin, qint64 end)
        : m_window(window)
        , m_next(begin)
        , m_end(end)
    {}

    [[nodiscard]] std::optional<Box> next();

    /// Tells that the last box was one that counts.
    void want() { m_unwanted = 0; }
    /// Goes on elsewhere.
    void goTo(qint64 offset) { m_next = offset; }

private:
    FileWindow &m_window;
    qint64 m_next;
    const qint64 m_end;
    int m_unwanted = 0;
};

/// @param read is called with each box in another one until it returns false
template <typename Reader>
void forEachBox(FileWindow &window, const Box &parent, Reader read)
{
    Boxes boxes(window, parent.begin, parent.end);
    for (std::optional<Box> box = boxes.next(); box && read(*box);)
        box = boxes.next();
}

/// How many entries of tables are read of one file at most: a day of sound whose samples are all of different
/// lengths.
class TableBudget
{
public:
    /// @return how many may be read
    qint64 take(qint64 entries)
    {
        const qint64 taken = entries < m_left ? entries : m_left;
        m_left -= taken;
        return taken;
    }

private:
    qint64 m_left = 1 << 22;
};

} // namespace sonavo
