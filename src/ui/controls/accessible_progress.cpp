#include "ui/controls/accessible_progress.h"

#include "ui/controls/progress_indicator.h"

#include <QQmlContext>
#include <QQmlProperty>
#include <QQuickWindow>

namespace sonavo {
namespace {

QAccessibleInterface *newInterface(const QString &, QObject *object)
{
    auto *indicator = qobject_cast<ProgressIndicator *>(object);
    return indicator ? new AccessibleProgress(indicator) : nullptr;
}

} // namespace

AccessibleProgress::AccessibleProgress(ProgressIndicator *indicator)
    : QAccessibleObject(indicator)
{}

void AccessibleProgress::install()
{
    QAccessible::installFactory(newInterface);
}

ProgressIndicator &AccessibleProgress::indicator() const
{
    return *static_cast<ProgressIndicator *>(object());
}

QWindow *AccessibleProgress::window() const
{
    return indicator().window();
}

QAccessibleInterface *AccessibleProgress::parent() const
{
    // No item between the indicator and the window is accessible itself.
    return QAccessible::queryAccessibleInterface(indicator().window());
}

QString AccessibleProgress::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name && kind != QAccessible::Description)
        return {};
    const QString property = kind == QAccessible::Name ? QStringLiteral("Accessible.name")
                                                       : QStringLiteral("Accessible.description");
    return QQmlProperty::read(&indicator(), property, qmlContext(&indicator())).toString();
}

QRect AccessibleProgress::rect() const
{
    const QRect inWindow = indicator().mapRectToScene(indicator().boundingRect()).toAlignedRect();
    return window() ? QRect(window()->mapToGlobal(inWindow.topLeft()), inWindow.size()) : inWindow;
}

QAccessible::State AccessibleProgress::state() const
{
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !window() || !window()->isVisible() || !indicator().isVisible();
    state.offscreen = state.invisible;
    return state;
}

QVariant AccessibleProgress::currentValue() const
{
    return indicator().value();
}

QVariant AccessibleProgress::maximumValue() const
{
    return ProgressIndicator::maximumValue();
}

QVariant AccessibleProgress::minimumValue() const
{
    return ProgressIndicator::minimumValue();
}

void *AccessibleProgress::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this) : nullptr;
}

} // namespace sonavo
