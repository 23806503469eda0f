#include "testing/hanging_disk.h"

#include <QFile>

#include <sys/syscall.h>

#include <utility>

namespace sonavo {

HangingDisk::HangingDisk(QByteArray marker)
    : m_marker(std::move(marker))
{}

HangingDisk::~HangingDisk()
{
    letGo();
}

bool HangingDisk::start()
{
    return m_listener.start({SYS_pread64}, [this](const seccomp_notif &call) { handle(call); });
}

void HangingDisk::letGo()
{
    const std::lock_guard lock(m_mutex);
    m_answers = true;
    for (const quint64 id : std::exchange(m_held, {}))
        m_listener.letThrough(id);
    m_hangingReads = 0;
}

void HangingDisk::handle(const seccomp_notif &call)
{
    const std::lock_guard lock(m_mutex);
    if (m_answers || !concerns(call)) {
        m_listener.letThrough(call.id);
    } else {
        m_held.push_back(call.id);
        ++m_hangingReads;
    }
}

bool HangingDisk::concerns(const seccomp_notif &call) const
{
    const QString link = QStringLiteral("/proc/%1/fd/%2").arg(call.pid).arg(call.data.args[0]);
    return QFile::encodeName(QFile::symLinkTarget(link)).endsWith(m_marker);
}

} // namespace sonavo
