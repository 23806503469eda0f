#include "ui/controls/accessible_ring.h"

#include "ui/controls/progress_ring.h"

#include <QQmlContext>
#include <QQmlProperty>
#include <QQuickWindow>

namespace sonavo {
namespace {

QAccessibleInterface *newInterface(const QString &, QObject *object)
{
    auto *ring = qobject_cast<ProgressRing *>(object);
    return ring ? new AccessibleRing(ring) : nullptr;
}

} // namespace

AccessibleRing::AccessibleRing(ProgressRing *ring)
    : QAccessibleObject(ring)
{}

void AccessibleRing::install()
{
    QAccessible::installFactory(newInterface);
}

ProgressRing &AccessibleRing::ring() const
{
    return *static_cast<ProgressRing *>(object());
}

QWindow *AccessibleRing::window() const
{
    return ring().window();
}

QAccessibleInterface *AccessibleRing::parent() const
{
    // No item between the ring and the window is accessible itself.
    return QAccessible::queryAccessibleInterface(ring().window());
}

QString AccessibleRing::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name && kind != QAccessible::Description)
        return {};
    const QString property = kind == QAccessible::Name ? QStringLiteral("Accessible.name")
                                                       : QStringLiteral("Accessible.description");
    return QQmlProperty::read(&ring(), property, qmlContext(&ring())).toString();
}

QRect AccessibleRing::rect() const
{
    const QRect inWindow = ring().mapRectToScene(ring().boundingRect()).toAlignedRect();
    return window() ? QRect(window()->mapToGlobal(inWindow.topLeft()), inWindow.size()) : inWindow;
}

QAccessible::State AccessibleRing::state() const
{
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !window() || !window()->isVisible() || !ring().isVisible();
    state.offscreen = state.invisible;
    return state;
}

QVariant AccessibleRing::currentValue() const
{
    return ring().value();
}

QVariant AccessibleRing::maximumValue() const
{
    return ProgressRing::maximumValue();
}

QVariant AccessibleRing::minimumValue() const
{
    return ProgressRing::minimumValue();
}

void *AccessibleRing::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this) : nullptr;
}

} // namespace sonavo
