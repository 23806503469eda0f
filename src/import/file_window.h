#pragma once

#include <QtGlobal>

#include <cstdint>
#include <cstring>
#include <span>
#include <stop_token>
#include <vector>

namespace sonavo {

class RegularFile;

/// The part of a file that is in memory: 64 KB at most, moved to wherever bytes are asked for. Reads are
/// small where the file is looked at here and there, and grow while they follow each other. Waits for the
/// disk. Any thread may use it, but only one at a time.
class FileWindow
{
public:
    /// The most bytes that can be asked for at once.
    static constexpr std::size_t MAX_SIZE = 64 * 1024;

    /// @param file open; must outlive the window
    /// @param stop makes every read fail once it is requested
    FileWindow(const RegularFile &file, std::stop_token stop);
    ~FileWindow();
    Q_DISABLE_COPY_MOVE(FileWindow)

    /// The bytes of the file from an offset on.
    /// @param offset zero or more
    /// @param size bytes needed, 1 to MAX_SIZE
    /// @return what is in memory from there on: `size` bytes or more; fewer only at the end of the file or
    /// after a failure. Valid until the next call.
    [[nodiscard]] std::span<const std::uint8_t> at(qint64 offset, std::size_t size)
    {
        if (offset < m_offset || offset + static_cast<qint64>(size) > m_offset + m_size)
            move(offset, size);
        const qint64 skipped = offset - m_offset;
        return skipped < 0 || skipped >= m_size
                   ? std::span<const std::uint8_t>()
                   : std::span(m_bytes.data() + skipped, static_cast<std::size_t>(m_size - skipped));
    }

    /// Whether a read has failed or was stopped. Then there is nothing more to be had from the file.
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    /// Size of the file in bytes.
    [[nodiscard]] qint64 fileSize() const;
    [[nodiscard]] const RegularFile &file() const { return m_file; }

private:
    void move(qint64 offset, std::size_t size);

    const RegularFile &m_file;
    const std::stop_token m_stop;
    std::vector<std::uint8_t> m_bytes;
    qint64 m_offset = 0;
    qint64 m_size = 0;
    std::size_t m_readSize = 0;
    bool m_hasFailed = false;
};

/// @return index of the first byte of a value, or the number of bytes where there is none
[[nodiscard]] inline qint64 distanceToByte(std::span<const std::uint8_t> bytes, std::uint8_t value)
{
    const void *const found = bytes.empty() ? nullptr : std::memchr(bytes.data(), value, bytes.size());
    return found ? static_cast<const std::uint8_t *>(found) - bytes.data()
                 : static_cast<qint64>(bytes.size());
}

} // namespace sonavo
