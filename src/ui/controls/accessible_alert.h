#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// Makes screen readers announce notices that appear by themselves.
class AccessibleAlert : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Announces a notice at the next turn of the event loop, when its bindings have been updated.
    /// @param notice an item with the role AlertMessage and an accessible name; null does nothing
    Q_INVOKABLE void raise(QQuickItem *notice);
};

} // namespace sonavo
