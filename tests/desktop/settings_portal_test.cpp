#include "desktop/settings_portal.h"
#include "testing/message_bus.h"

#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <future>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using Settings = QMap<QString, QVariantMap>;

const QString SERVICE = u"org.freedesktop.portal.Desktop"_s;
const QString GNOME = u"org.gnome.desktop.interface"_s;

/// The desktop's portal.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Settings settings;
    bool isSilent = false;

    void change(const QString &group, const QString &key, const QVariant &value)
    {
        settings[group][key] = value;
        Q_EMIT SettingChanged(group, key, QDBusVariant(value));
    }

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList & /*groups*/) { return settings; }
    QDBusVariant Read(const QString &group, const QString &key, const QDBusMessage &message)
    {
        const QVariant setting = settings.value(group).value(key);
        message.setDelayedReply(isSilent || !setting.isValid());
        if (!setting.isValid())
            QDBusConnection(u"desktop"_s)
                .send(message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, {}));
        // Wrapped twice, as real ones do.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(setting)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);
};

class SettingsPortalTest : public testing::Test
{
protected:
    void SetUp() override
    {
        qDBusRegisterMetaType<Settings>();
        ASSERT_TRUE(messageBus.start(home));
        bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"program"_s);
        desktop = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);
        if (!desktop.isConnected())
            GTEST_SKIP() << "a process has one session bus only; ctest gives each test its own process";
        ASSERT_TRUE(desktop.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                           QDBusConnection::ExportAllContents));
    }

    const PrivateHome home;
    MessageBus messageBus;
    FakePortal portal;
    QDBusConnection bus{QString()};
    QDBusConnection desktop{QString()};
};

TEST_F(SettingsPortalTest, FollowsWhatTheUserWishesOnEveryDesktop)
{
    portal.settings[u"org.freedesktop.appearance"_s][u"contrast"_s] = 1U;
    portal.settings[GNOME][u"enable-animations"_s] = true;
    const SettingsPortal settings(bus);
    QTest::qWait(50);
    EXPECT_FALSE(settings.isHighContrast()) << "no portal";
    ASSERT_TRUE(desktop.registerService(SERVICE));
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings.isHighContrast(); })) << "it has started later";
    EXPECT_FALSE(settings.isMotionReduced());

    const struct
    {
        QString group, key;
        QVariant on, off;
        bool (SettingsPortal::*wish)() const;
    } wishes[] = {
        {u"org.freedesktop.appearance"_s, u"contrast"_s, 1U, 0U, &SettingsPortal::isHighContrast},
        {u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s, true, false,
         &SettingsPortal::isHighContrast},
        {u"org.freedesktop.appearance"_s, u"reduced-motion"_s, 1U, 0U, &SettingsPortal::isMotionReduced},
        {GNOME, u"enable-animations"_s, false, true, &SettingsPortal::isMotionReduced},
        {u"org.kde.kdeglobals.KDE"_s, u"AnimationDurationFactor"_s, u"0"_s, u"0.5"_s,
         &SettingsPortal::isMotionReduced},
    };
    for (const auto &entry : wishes) {
        SCOPED_TRACE(entry.key.toStdString());
        for (const bool isOn : {true, false}) {
            portal.change(entry.group, entry.key, isOn ? entry.on : entry.off);
            EXPECT_TRUE(QTest::qWaitFor([&] { return (settings.*entry.wish)() == isOn; }));
        }
    }
}

TEST_F(SettingsPortalTest, ReadsHowLargeTextShouldBeWithoutWaitingForLong)
{
    const auto scale = [this] {
        std::future<double> result =
            std::async(std::launch::async, [this] { return readTextScale(bus, 500ms); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.wait_for(0s) == std::future_status::ready; }));
        return result.get();
    };
    EXPECT_EQ(scale(), 1.0) << "no portal";
    ASSERT_TRUE(desktop.registerService(SERVICE));
    EXPECT_EQ(scale(), 1.0) << "no such setting";
    for (const auto &[set, expected] : {std::pair(1.25, 1.25), {100.0, 3.0}, {0.0, 1.0}}) {
        portal.settings[GNOME][u"text-scaling-factor"_s] = set;
        EXPECT_EQ(scale(), expected);
    }
    portal.settings[GNOME][u"text-scaling-factor"_s] = 2.0;
    portal.isSilent = true;
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(scale(), 1.0);
    EXPECT_LT(timer.elapsed(), 3'000);
}

} // namespace
} // namespace sonavo

#include "settings_portal_test.moc"
