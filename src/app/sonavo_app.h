#pragma once

#include "app/app_delegate.h"
#include "app/application_service.h"
#include "app/long_work.h"
#include "app/scene_delegate.h"
#include "desktop/settings_portal.h"
#include "desktop/system_desktop.h"
#include "session/duplicate_view_model.h"

#include <QList>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QUrl>

#include <memory>

namespace sonavo {

/// The application: one window, one session and one theme for the whole run. Needs a QApplication. Main
/// thread only.
class SonavoApp
{
public:
    SonavoApp();
    ~SonavoApp();
    Q_DISABLE_COPY_MOVE(SonavoApp)

    /// Opens the window.
    /// @param items file URLs, imported at once as if the user had chosen them; may be empty
    /// @return whether the window could be opened
    [[nodiscard]] bool launch(const QList<QUrl> &items);

    /// Brings the window to the front and imports what another process asks for. The user is asked first
    /// whether a result with duplicates may be replaced.
    /// @return false when a job runs and nothing can be imported
    [[nodiscard]] bool open(const OpenRequest &request);

private:
    /// Follows what the user has set for all programs.
    void followSettings(const QDBusConnection &bus);

    SystemDesktop m_desktop;
    DuplicateViewModel m_viewModel;
    AppDelegate m_appDelegate;
    SceneDelegate m_sceneDelegate;
    // Behind what the views show, so that they are destroyed before it.
    QQmlApplicationEngine m_engine;
    QPointer<QQuickWindow> m_window;
    std::unique_ptr<LongWork> m_longWork;
    std::unique_ptr<SettingsPortal> m_settings;
};

} // namespace sonavo
