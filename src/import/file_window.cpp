#include "import/file_window.h"

#include "import/regular_file.h"

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

/// A page: more costs the disk as much time, and less is not read faster.
constexpr std::size_t MIN_READ_SIZE = 4096;
/// A frame that is passed over on the way does not make two reads look unrelated.
constexpr qint64 MAX_GAP = 16 * 1024;

/// The calling thread's buffer while no window uses it. A new one for every file would leave gaps in the
/// heap between the songs, which add up to several times the songs' own memory.
std::vector<std::uint8_t> &spareBuffer()
{
    thread_local std::vector<std::uint8_t> buffer;
    return buffer;
}

} // namespace

FileWindow::FileWindow(const RegularFile &file, std::stop_token stop)
    : m_file(file)
    , m_stop(std::move(stop))
    , m_bytes(std::exchange(spareBuffer(), {}))
{
    m_bytes.resize(MAX_SIZE);
}

FileWindow::~FileWindow()
{
    spareBuffer() = std::move(m_bytes);
}

qint64 FileWindow::fileSize() const
{
    return m_file.size();
}

void FileWindow::move(qint64 offset, std::size_t size)
{
    Q_ASSERT(offset >= 0 && size > 0 && size <= MAX_SIZE);
    const bool endsFile = m_size > 0 && m_offset + m_size >= fileSize();
    if (offset >= fileSize() || m_hasFailed || (endsFile && offset >= m_offset))
        return;
    const bool follows = m_size > 0 && offset >= m_offset && offset <= m_offset + m_size + MAX_GAP;
    m_readSize = follows ? std::min(m_readSize * 2, MAX_SIZE) : MIN_READ_SIZE;
    const auto wanted = static_cast<qint64>(std::max(m_readSize, size));
    m_offset = offset;
    m_size = 0;
    // Some file systems return less than there is.
    while (m_size < static_cast<qint64>(size) && offset + m_size < fileSize()) {
        const ssize_t count =
            m_stop.stop_requested()
                ? -1
                : m_file.read(std::span(m_bytes).subspan(static_cast<std::size_t>(m_size),
                                                         static_cast<std::size_t>(wanted - m_size)),
                              offset + m_size);
        if (count <= 0) {
            m_hasFailed = count < 0;
            if (m_hasFailed)
                m_size = 0;
            return;
        }
        m_size += count;
    }
}

} // namespace sonavo
