#include "desktop/notification.h"
#include "testing/message_bus.h"

#include <QDBusVariant>
#include <QTest>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The only one that shows notifications to programs in a sandbox.
class NotificationPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Notification")

public:
    QStringList shown;

public Q_SLOTS:
    void AddNotification(const QString &id, const QVariantMap &notification)
    {
        shown = {id, notification[u"title"_s].toString(), notification[u"default-action"_s].toString()};
    }
    void RemoveNotification(const QString &id) { shown.removeOne(id); }

Q_SIGNALS:
    void ActionInvoked(const QString &id, const QString &action, const QVariantList &parameter);
};

TEST(Notification, ShowsThroughThePortalWhereNothingElseDoes)
{
    const PrivateHome home;
    MessageBus messageBus;
    ASSERT_TRUE(messageBus.start(home));
    NotificationPortal portal;
    QDBusConnection desktop = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
    ASSERT_TRUE(desktop.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                       QDBusConnection::ExportAllContents));
    ASSERT_TRUE(desktop.registerService(u"org.freedesktop.portal.Desktop"_s));
    Notification notification(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"sandbox"_s));
    QStringList tokens;
    QObject::connect(&notification, &Notification::activated,
                     [&tokens](const QString &token) { tokens.append(token); });
    notification.show(u"Done & <b>dusted</b>"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.shown.isEmpty(); }));
    EXPECT_EQ(portal.shown[1], u"Done & <b>dusted</b>"_s);
    Q_EMIT portal.ActionInvoked(u"another"_s, portal.shown[2], {});
    Q_EMIT portal.ActionInvoked(portal.shown[0], portal.shown[2], {});
    Q_EMIT portal.ActionInvoked(portal.shown[0], portal.shown[2],
                                {u"target"_s, QVariantMap{{u"activation-token"_s, u"token"_s}}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return tokens.size() >= 2; }));
    EXPECT_EQ(tokens, QStringList({{}, u"token"_s}));
    notification.withdraw();
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.shown.size() == 2; }));
}

} // namespace
} // namespace sonavo

#include "notification_test.moc"
