#pragma once

#include <QByteArray>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace sonavo {

/// An open file, or an error number.
class Descriptor
{
public:
    /// @param path in the file system's encoding
    /// @param flags as for open(); a program that is started does not get the file
    /// @param permissions of a file that is made
    explicit Descriptor(const QByteArray &path, int flags, mode_t permissions = 0)
        : m_descriptor(::open(path.constData(), flags | O_CLOEXEC, permissions))
        , m_error(m_descriptor < 0 ? errno : 0)
    {}
    ~Descriptor() { close(); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] int get() const { return m_descriptor; }
    /// As in errno; 0 if the file was opened.
    [[nodiscard]] int error() const { return m_error; }

    /// Writes all of it at the current position.
    /// @return an error number, 0 for success; ENOSPC if only a part could be written, which stays
    [[nodiscard]] int write(const QByteArray &content) const
    {
        const ssize_t written =
            ::write(m_descriptor, content.constData(), static_cast<size_t>(content.size()));
        if (written < 0)
            return errno;
        return written == content.size() ? 0 : ENOSPC;
    }

    /// @return an error number, 0 for success: network file systems may tell only now that a disk is full
    int close()
    {
        const int result = m_descriptor >= 0 ? ::close(m_descriptor) : 0;
        m_descriptor = -1;
        return result == 0 ? 0 : errno;
    }

private:
    int m_descriptor;
    int m_error;
};

} // namespace sonavo
