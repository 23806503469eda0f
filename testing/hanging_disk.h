#pragma once

#include "testing/system_call_listener.h"

#include <QFile>

#include <sys/syscall.h>

#include <mutex>
#include <set>
#include <utility>
#include <vector>

namespace sonavo {

/// A disk that does not answer: reads of some files and folders block in the kernel until they are released.
/// Affects the thread that calls start(), and the threads and processes that it starts afterwards. Once per
/// process.
class HangingDisk
{
public:
    /// @param marker reads of files and folders hang whose path ends with it
    explicit HangingDisk(QByteArray marker)
        : m_marker(std::move(marker))
    {}
    /// Releases the reads that hang.
    ~HangingDisk() { letGo(); }
    Q_DISABLE_COPY_MOVE(HangingDisk)

    /// @return whether this process may do that
    [[nodiscard]] bool start()
    {
        return m_listener.start({SYS_pread64, SYS_getdents64, SYS_socket},
                                [this](const seccomp_notif &call) { handle(call); });
    }
    /// The address families of the sockets that were made, as AF_UNIX.
    [[nodiscard]] std::set<int> socketFamilies()
    {
        const std::lock_guard lock(m_mutex);
        return m_socketFamilies;
    }

    /// How many reads hang now.
    [[nodiscard]] std::size_t hangingReads()
    {
        const std::lock_guard lock(m_mutex);
        return m_held.size();
    }
    /// From now on the disk answers, also to the reads that hang.
    void letGo()
    {
        const std::lock_guard lock(m_mutex);
        m_answers = true;
        for (const quint64 id : std::exchange(m_held, {}))
            m_listener.letThrough(id);
    }

private:
    void handle(const seccomp_notif &call)
    {
        if (call.data.nr == SYS_socket) {
            const std::lock_guard lock(m_mutex);
            m_socketFamilies.insert(static_cast<int>(call.data.args[0]));
            m_listener.letThrough(call.id);
            return;
        }
        const QString link = QStringLiteral("/proc/%1/fd/%2").arg(call.pid).arg(call.data.args[0]);
        const bool isMarked = QFile::encodeName(QFile::symLinkTarget(link)).endsWith(m_marker);
        const std::lock_guard lock(m_mutex);
        if (isMarked && !m_answers)
            m_held.push_back(call.id);
        else
            m_listener.letThrough(call.id);
    }

    const QByteArray m_marker;
    bool m_answers = false;
    std::vector<quint64> m_held;
    std::set<int> m_socketFamilies;
    std::mutex m_mutex;
    SystemCallListener m_listener;
};

} // namespace sonavo
