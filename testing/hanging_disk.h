#pragma once

#include "testing/system_call_listener.h"

#include <QByteArray>

#include <atomic>
#include <mutex>
#include <vector>

namespace sonavo {

/// A disk that does not answer: reads of some files block in the kernel until they are let go. Holds for the
/// thread that calls start(), and for the threads and processes that it starts from then on. Once a process.
class HangingDisk
{
public:
    /// @param marker reads of files hang whose path ends with it
    explicit HangingDisk(QByteArray marker);
    /// Lets go.
    ~HangingDisk();
    Q_DISABLE_COPY_MOVE(HangingDisk)

    /// @return whether this process may do that
    [[nodiscard]] bool start();

    /// How many reads hang now.
    [[nodiscard]] int hangingReads() const { return m_hangingReads; }
    /// From now on the disk answers, also to the reads that hang.
    void letGo();

private:
    void handle(const seccomp_notif &call);
    [[nodiscard]] bool concerns(const seccomp_notif &call) const;

    const QByteArray m_marker;
    std::atomic<int> m_hangingReads = 0;
    bool m_answers = false;
    std::vector<quint64> m_held;
    std::mutex m_mutex;
    SystemCallListener m_listener;
};

} // namespace sonavo
