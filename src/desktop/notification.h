#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantList>

namespace sonavo {

/// The program's notification on the desktop, one at a time: through org.freedesktop.Notifications or, where
/// that does not answer, as in a sandbox, through the portal (org.freedesktop.portal.Notification). Nothing
/// here waits for an answer. Main thread only.
class Notification : public QObject
{
    Q_OBJECT

public:
    /// @param bus must be connected
    explicit Notification(const QDBusConnection &bus, QObject *parent = nullptr);
    /// Takes the notification away.
    ~Notification() override;
    Q_DISABLE_COPY_MOVE(Notification)

    /// Shows a plain text, in place of the one before.
    void show(const QString &text);
    /// Takes the notification away.
    void withdraw();

Q_SIGNALS:
    /// The user has clicked it.
    /// @param activationToken with which a window may come to the front; empty where the desktop has none
    void activated(const QString &activationToken);

private:
    Q_SLOT void keepToken(uint id, const QString &token);
    Q_SLOT void activate(uint id, const QString &action);
    Q_SLOT void activateByPortal(const QString &id, const QString &action, const QVariantList &parameter);
    void showByPortal(const QString &text);

    QDBusConnection m_bus;
    /// 0 without one.
    uint m_id = 0;
    bool m_isInPortal = false;
    QString m_token;
};

} // namespace sonavo
