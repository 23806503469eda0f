#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <linux/seccomp.h>
#include <mutex>
#include <thread>
#include <vector>

namespace sonavo {

/// A disk that does not answer: reads of some files stay in the kernel until they are let go. Holds for this
/// process, in what runs after start(), and for the processes that it starts. Once a process.
class HangingDisk
{
public:
    /// @param marker reads hang from files whose path ends so
    explicit HangingDisk(QByteArray marker);
    /// Lets go.
    ~HangingDisk();
    Q_DISABLE_COPY_MOVE(HangingDisk)

    /// @return whether this process may do that
    [[nodiscard]] bool start();

    /// Reads that hang now.
    [[nodiscard]] int hangingReads() const { return m_hangingReads; }
    /// From now on the disk answers, also what hangs.
    void letGo();

private:
    void supervise();
    void answer(quint64 id);
    [[nodiscard]] bool concerns(const seccomp_notif &call) const;

    const QByteArray m_marker;
    int m_calls = -1;
    std::atomic<bool> m_isOver = false;
    std::atomic<bool> m_answers = false;
    std::atomic<int> m_hangingReads = 0;
    std::vector<quint64> m_held;
    std::mutex m_mutex;
    std::thread m_supervisor;
};

} // namespace sonavo
