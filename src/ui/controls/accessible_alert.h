#pragma once

#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// Tells screen readers about notices that appear by themselves.
class AccessibleAlert : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Has a notice read aloud at the next turn of the event loop, when it has settled what it says.
    /// @param notice the item that shows it, with the role of an alert message and a name
    Q_INVOKABLE void raise(QQuickItem *notice);
};

} // namespace sonavo
