#include "app/app_delegate.h"

#include "session/duplicate_view_model.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace sonavo {

AppDelegate::AppDelegate(DuplicateViewModel *viewModel, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
{
    connect(qApp, &QCoreApplication::aboutToQuit, this, &AppDelegate::applicationWillTerminate);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationSuspended)
            cleanUp(m_viewModel);
    });
}

void AppDelegate::applicationDidFinishLaunching()
{
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this,
            [](QSessionManager &session) { session.setRestartHint(QSessionManager::RestartNever); });
}

void AppDelegate::applicationWillTerminate()
{
    cleanUp(m_viewModel);
}

void AppDelegate::cleanUp(DuplicateViewModel *viewModel)
{
    if (!viewModel)
        return;
    viewModel->stopPlayback();
    viewModel->clearAll();
}

} // namespace sonavo
