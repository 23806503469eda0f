#include "app/sonavo_app.h"

#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QVariant>
#include <QtQml/qqmlextensionplugin.h>

// The views are linked statically; this registers them.
Q_IMPORT_QML_PLUGIN(SonavoPlugin)

namespace sonavo {

SonavoApp::SonavoApp()
    : m_viewModel(m_desktop, std::make_shared<EventLoopPauses>(),
                  groupColors(ThemeManager::shared()->currentTheme()))
    , m_appDelegate(&m_viewModel)
    , m_sceneDelegate(&m_viewModel)
{}

SonavoApp::~SonavoApp() = default;

bool SonavoApp::launch(const QList<QUrl> &items)
{
    m_appDelegate.applicationDidFinishLaunching();
    m_engine.addImportPath(QStringLiteral(":/qt/qml"));
    m_engine.setInitialProperties({
        {QStringLiteral("viewModel"), QVariant::fromValue(&m_viewModel)},
        {QStringLiteral("themeManager"), QVariant::fromValue(ThemeManager::shared())},
    });
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Sonavo/MainWindow.qml")));
    if (m_engine.rootObjects().isEmpty())
        return false;
    m_engine.rootObjects().first()->installEventFilter(&m_sceneDelegate);
    ThemeManager::shared()->applyTheme();
    if (!items.isEmpty())
        m_viewModel.importChosenItems(items);
    return true;
}

} // namespace sonavo
