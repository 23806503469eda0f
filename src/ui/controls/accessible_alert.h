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

    /// Announces a notice.
    /// @param notice an item with the role AlertMessage and an accessible name; null does nothing
    Q_INVOKABLE void raise(QQuickItem *notice);
};

} // namespace sonavo
