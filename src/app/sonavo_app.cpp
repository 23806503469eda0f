#include "app/sonavo_app.h"

#include "session/clean_up_work.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/main_window.h"

#include <QQuickWindow>

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
    removeLeftoversLater();
    QQuickWindow *window = loadMainWindow(m_engine, m_viewModel, *ThemeManager::shared());
    if (!window)
        return false;
    window->installEventFilter(&m_sceneDelegate);
    if (!items.isEmpty())
        m_viewModel.importChosenItems(items);
    return true;
}

} // namespace sonavo
