#include "app/scene_delegate.h"

#include "desktop/window_activation.h"
#include "session/duplicate_view_model.h"

#include <QEvent>

namespace sonavo {

SceneDelegate::SceneDelegate(DuplicateViewModel *viewModel, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
{}

void SceneDelegate::setWindow(QWindow &window)
{
    m_window = &window;
    window.installEventFilter(this);
    [[maybe_unused]] const auto connection =
        connect(&window, SIGNAL(showRequested()), this, SLOT(showWindow()));
    Q_ASSERT(connection);
}

void SceneDelegate::showWindow()
{
    if (m_window)
        bringToFront(*m_window, {});
}

bool SceneDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close && m_viewModel)
        m_viewModel->endSession();
    return QObject::eventFilter(watched, event);
}

} // namespace sonavo
