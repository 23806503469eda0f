#include "testing/hanging_disk.h"

#include <QFile>

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>
#include <iterator>
#include <linux/filter.h>

namespace sonavo {

HangingDisk::HangingDisk(QByteArray marker)
    : m_marker(std::move(marker))
{}

HangingDisk::~HangingDisk()
{
    letGo();
    m_isOver = true;
    if (m_supervisor.joinable())
        m_supervisor.join();
    if (m_calls >= 0)
        ::close(m_calls);
}

bool HangingDisk::start()
{
    sock_filter program[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_pread64, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{static_cast<unsigned short>(std::size(program)), program};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return false;
    m_calls = static_cast<int>(
        ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
    if (m_calls < 0)
        return false;
    m_supervisor = std::thread([this] { supervise(); });
    return true;
}

void HangingDisk::letGo()
{
    const std::lock_guard lock(m_mutex);
    m_answers = true;
    for (const quint64 id : std::exchange(m_held, {}))
        answer(id);
    m_hangingReads = 0;
}

void HangingDisk::supervise()
{
    while (!m_isOver) {
        constexpr int PATIENCE_MS = 20;
        pollfd calls{m_calls, POLLIN, 0};
        if (::poll(&calls, 1, PATIENCE_MS) != 1 || (calls.revents & POLLIN) == 0)
            continue;
        seccomp_notif call = {};
        if (::ioctl(m_calls, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0)
            continue;
        const std::lock_guard lock(m_mutex);
        if (m_answers || !concerns(call)) {
            answer(call.id);
        } else {
            m_held.push_back(call.id);
            ++m_hangingReads;
        }
    }
}

void HangingDisk::answer(quint64 id)
{
    seccomp_notif_resp response = {};
    response.id = id;
    response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
    // The caller may be gone.
    static_cast<void>(::ioctl(m_calls, SECCOMP_IOCTL_NOTIF_SEND, &response));
}

bool HangingDisk::concerns(const seccomp_notif &call) const
{
    const QString link = QStringLiteral("/proc/%1/fd/%2").arg(call.pid).arg(call.data.args[0]);
    return QFile::encodeName(QFile::symLinkTarget(link)).endsWith(m_marker);
}

} // namespace sonavo
