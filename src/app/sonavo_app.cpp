#include "app/sonavo_app.h"

#include "session/clean_up_work.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/main_window.h"

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
    m_window = loadMainWindow(m_engine, m_viewModel, *ThemeManager::shared());
    if (!m_window)
        return false;
    m_window->installEventFilter(&m_sceneDelegate);
    if (!items.isEmpty())
        m_viewModel.importChosenItems(items);
    return true;
}

bool SonavoApp::open(const OpenRequest &request)
{
    if (m_window) {
        // Where Qt looks for it when the window is activated.
        if (!request.activationToken.isEmpty())
            qputenv("XDG_ACTIVATION_TOKEN", request.activationToken.toUtf8());
        QMetaObject::invokeMethod(m_window, "showMainWindow");
    }
    return request.items.isEmpty() || m_viewModel.openItems(request.items);
}

} // namespace sonavo
