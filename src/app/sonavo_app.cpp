#include "app/sonavo_app.h"

#include "desktop/session_bus.h"
#include "desktop/window_activation.h"
#include "session/clean_up_work.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/main_window.h"

namespace sonavo {

SonavoApp::SonavoApp()
    : m_viewModel(m_desktop, std::make_shared<EventLoopPauses>(),
                  groupColors(ThemeManager::shared()->currentTheme()), std::make_shared<KnownDurations>())
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
    m_sceneDelegate.setWindow(*m_window);
    m_longWork = std::make_unique<LongWork>(m_viewModel, *m_window);
    QObject::connect(m_longWork.get(), &LongWork::activated,
                     [this](const QString &token) { bringToFront(*m_window, token); });
    connectToSessionBus().then(m_longWork.get(), [this](const QDBusConnection &bus) {
        if (bus.isConnected())
            followSettings(bus);
    });
    if (!items.isEmpty())
        m_viewModel.openItems(items);
    return true;
}

bool SonavoApp::open(const OpenRequest &request)
{
    if (m_window)
        bringToFront(*m_window, request.activationToken);
    return request.items.isEmpty() || m_viewModel.openItems(request.items);
}

void SonavoApp::followSettings(const QDBusConnection &bus)
{
    m_settings = std::make_unique<SettingsPortal>(bus);
    QObject::connect(m_settings.get(), &SettingsPortal::changed, [this] {
        ThemeManager::shared()->setWishes({.isHighContrast = m_settings->isHighContrast(),
                                           .isMotionReduced = m_settings->isMotionReduced()});
    });
}

} // namespace sonavo
