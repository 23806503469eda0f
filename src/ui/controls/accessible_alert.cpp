#include "ui/controls/accessible_alert.h"

#include <QAccessible>
#include <QAccessibleEvent>

namespace sonavo {

void AccessibleAlert::raise(QQuickItem *notice)
{
    if (!notice || !QAccessible::isActive())
        return;
    const auto announce = [notice] {
        QAccessibleEvent event(notice, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    };
    QMetaObject::invokeMethod(notice, announce, Qt::QueuedConnection);
}

} // namespace sonavo
