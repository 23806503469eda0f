#include "ui/controls/accessible_alert.h"

#include <QAccessible>
#include <QAccessibleEvent>

namespace sonavo {

void AccessibleAlert::raise(QQuickItem *notice)
{
    if (!notice || !QAccessible::isActive())
        return;
    QAccessibleEvent event(notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace sonavo
