#include "ui/controls/accessible_alert.h"

#include <QAccessible>
#include <QAccessibleEvent>

#include <utility>

namespace sonavo {

void AccessibleAlert::raise(QQuickItem *notice)
{
    if (!notice || !QAccessible::isActive() || m_pending.contains(notice))
        return;
    m_pending.append(notice);
    const auto announce = [this] {
        for (const QPointer<QQuickItem> &item : std::exchange(m_pending, {})) {
            if (!item)
                continue;
            QAccessibleEvent event(item, QAccessible::Alert);
            QAccessible::updateAccessibility(&event);
        }
    };
    if (m_pending.size() == 1)
        QMetaObject::invokeMethod(this, announce, Qt::QueuedConnection);
}

} // namespace sonavo
