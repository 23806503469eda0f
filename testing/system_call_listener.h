#pragma once

#include <QtGlobal>

#include <atomic>
#include <functional>
#include <linux/seccomp.h>
#include <optional>
#include <thread>
#include <vector>

namespace sonavo {

/// Stops system calls of the calling thread, and of the threads and processes that it starts from then on,
/// until a test has decided what becomes of them. Once per process: it cannot be undone. When the
/// listener is destroyed, such calls fail with ENOSYS.
class SystemCallListener
{
public:
    /// Runs in a thread whose own calls are not stopped. Answers at once or later; until then the caller
    /// waits.
    using Handler = std::function<void(const seccomp_notif &)>;

    enum class Stops
    {
        OnlyTheseCalls,
        AllOtherCalls,
    };

    /// For a test that has its process for itself, as in ctest: others would be held up after it, and threads
    /// that they have left would not be stopped.
    /// @param numbers of calls, such as SYS_unlink
    /// @return whether this process may do that
    [[nodiscard]] bool start(const std::vector<unsigned> &numbers, Handler handler);
    /// The same in a process that runs no other tests, such as runInChild().
    [[nodiscard]] bool stopCalls(const std::vector<unsigned> &numbers, Handler handler, Stops stops);

    // To be called from any thread, for every call once.
    void letThrough(quint64 id) const;
    void fail(quint64 id, int error) const;
    /// For calls of this process.
    /// @param error what the caller is told if the call succeeds, as in errno
    void carryOut(const seccomp_notif &call, int error) const;

private:
    void listen(const std::stop_token &stop, const Handler &handler) const;
    void answer(const seccomp_notif_resp &response) const;

    static constexpr int NOT_STARTED = -2;
    std::atomic<int> m_listener = NOT_STARTED;
    std::jthread m_thread;
};

/// The exit status of a child that was not allowed to stop its system calls.
constexpr int NOT_ALLOWED = 77;

/// Runs work in a copy of this process, some of whose system calls are stopped.
/// @param numbers, stops as in SystemCallListener
/// @param handler has to answer the calls that are stopped
/// @return what the work returned, 0 to 255; nothing when the process was killed
[[nodiscard]] std::optional<int>
runInChild(const std::function<int()> &work, const std::vector<unsigned> &numbers,
           const std::function<void(const SystemCallListener &, const seccomp_notif &)> &handler,
           SystemCallListener::Stops stops = SystemCallListener::Stops::OnlyTheseCalls);

} // namespace sonavo
