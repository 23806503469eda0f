#include "import/regular_file.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace sonavo {
namespace {

qint64 nanoseconds(const struct timespec &time)
{
    constexpr qint64 NANOSECONDS_PER_SECOND = 1'000'000'000;
    return time.tv_sec * NANOSECONDS_PER_SECOND + time.tv_nsec;
}

FileVersion versionOf(const struct stat &status)
{
    return {{status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim)},
            nanoseconds(status.st_ctim)};
}

} // namespace

RegularFile::RegularFile(QString path, ReadCounter *counter)
    : m_path(std::move(path))
    , m_counter(counter)
{
    const QByteArray name = QFile::encodeName(m_path);
    struct stat status = {};
    if (::lstat(name.constData(), &status) != 0)
        return;
    const bool isLink = S_ISLNK(status.st_mode);
    m_entrySize = status.st_size;
    if ((isLink && ::stat(name.constData(), &status) != 0) || !S_ISREG(status.st_mode))
        return;
    m_descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    // The name can have been given to another file in between.
    if (m_descriptor >= 0 && (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)))
        close();
    m_version = versionOf(status);
    if (!isLink)
        m_entrySize = size();
}

RegularFile::~RegularFile()
{
    close();
}

ssize_t RegularFile::read(std::span<std::uint8_t> target, qint64 offset) const
{
    ssize_t count = -1;
    do {
        count = ::pread(m_descriptor, target.data(), target.size(), offset);
    } while (count < 0 && errno == EINTR);
    if (m_counter)
        ++*m_counter;
    return count;
}

void RegularFile::close()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

} // namespace sonavo
