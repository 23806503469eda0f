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
            // AT-SPI knows no alerts. It hears of an item that appears by itself, but not of a new text.
            for (const auto type : {QAccessible::Alert, QAccessible::ObjectShow}) {
                QAccessibleEvent event(item, type);
                if (type == QAccessible::Alert || item->isVisible())
                    QAccessible::updateAccessibility(&event);
            }
        }
    };
    if (m_pending.size() == 1)
        QMetaObject::invokeMethod(this, announce, Qt::QueuedConnection);
}

} // namespace sonavo
