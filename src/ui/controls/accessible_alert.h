#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
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

    /// Announces a notice at the next turn of the event loop, once for all calls until then.
    /// @param notice an item with the role AlertMessage or Notification and an accessible name; null does
    /// nothing
    Q_INVOKABLE void raise(QQuickItem *notice);

private:
    QList<QPointer<QQuickItem>> m_pending;
};

} // namespace sonavo
