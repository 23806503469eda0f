#include <QApplication>
#include <QTemporaryDir>
#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    // The theme is remembered among the person's settings: these are for the tests.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", settings.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QApplication application(argc, argv);
    // As when a screen reader runs; this platform has none.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QApplication::setApplicationName(QStringLiteral("sonavo"));
    QApplication::setOrganizationName(QStringLiteral("sonavo"));
    QApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    return RUN_ALL_TESTS();
}
