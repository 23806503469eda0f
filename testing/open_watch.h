#pragma once

#include <QFile>
#include <QString>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <stdexcept>

namespace sonavo {

/// Sees whether a file, or any file directly in a folder, has been opened by anyone.
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

    [[nodiscard]] bool sawOpening() const
    {
        std::array<char, sizeof(inotify_event) + NAME_MAX + 1> event{};
        return ::read(m_descriptor, event.data(), event.size()) > 0;
    }

private:
    int m_descriptor = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

} // namespace sonavo
