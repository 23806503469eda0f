#pragma once

#include <QFile>
#include <QString>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace sonavo {

/// Counts how often a file, or any file directly in a folder, is opened by anyone.
class OpenWatch
{
public:
    explicit OpenWatch(const QString &path)
    {
        if (::inotify_add_watch(m_descriptor, QFile::encodeName(path).constData(), IN_OPEN) < 0)
            throw std::runtime_error("cannot watch " + path.toStdString());
    }
    ~OpenWatch() { ::close(m_descriptor); }
    Q_DISABLE_COPY_MOVE(OpenWatch)

    /// How often since the last call.
    [[nodiscard]] int count()
    {
        int count = 0;
        std::array<char, 64 * 1024> events{};
        for (ssize_t size = 0; (size = ::read(m_descriptor, events.data(), events.size())) > 0;) {
            for (std::size_t offset = 0; offset < static_cast<std::size_t>(size); ++count) {
                inotify_event event{};
                std::memcpy(&event, events.data() + offset, sizeof event);
                offset += sizeof event + event.len;
            }
        }
        return count;
    }

private:
    int m_descriptor = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

} // namespace sonavo
