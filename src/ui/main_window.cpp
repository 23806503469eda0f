#include "ui/main_window.h"

#include "session/duplicate_view_model.h"
#include "theme/theme_manager.h"
#include "ui/held_key_filter.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QVariant>
#include <QtQml/qqmlextensionplugin.h>

// The views are linked in statically; this registers them.
Q_IMPORT_QML_PLUGIN(SonavoPlugin)

namespace sonavo {

QQuickWindow *loadMainWindow(QQmlApplicationEngine &engine, DuplicateViewModel &viewModel,
                             ThemeManager &themeManager)
{
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    engine.setInitialProperties({
        {QStringLiteral("viewModel"), QVariant::fromValue(&viewModel)},
        {QStringLiteral("themeManager"), QVariant::fromValue(&themeManager)},
    });
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Sonavo/MainWindow.qml")));
    themeManager.applyTheme();
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (window)
        window->installEventFilter(new HeldKeyFilter(window));
    return window;
}

} // namespace sonavo
