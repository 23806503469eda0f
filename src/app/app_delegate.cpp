#include "app/app_delegate.h"

#include "session/duplicate_view_model.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace sonavo {

AppDelegate::AppDelegate(DuplicateViewModel *viewModel, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
{
    connect(qGuiApp, &QGuiApplication::aboutToQuit, this, &AppDelegate::applicationWillTerminate);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationSuspended)
            clearSession();
    });
}

void AppDelegate::applicationDidFinishLaunching()
{
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this,
            [](QSessionManager &session) { session.setRestartHint(QSessionManager::RestartNever); });
}

void AppDelegate::applicationWillTerminate()
{
    clearSession();
}

void AppDelegate::clearSession()
{
    if (m_viewModel)
        m_viewModel->endSession();
}

} // namespace sonavo
