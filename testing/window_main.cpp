#include "language/language.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    // The user's own settings stay as they are.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", settings.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("GST_REGISTRY", SONAVO_PLUGIN_LIST);
    const QApplication application(argc, argv);
    sonavo::useEnglish();
    QApplication::setApplicationName(QStringLiteral("sonavo"));
    QApplication::setOrganizationName(QStringLiteral("sonavo"));
    return RUN_ALL_TESTS();
}
