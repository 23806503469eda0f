#include "app/scene_delegate.h"

#include "session/duplicate_view_model.h"

#include <QEvent>

namespace sonavo {

SceneDelegate::SceneDelegate(DuplicateViewModel *viewModel, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
{}

bool SceneDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close && m_viewModel)
        m_viewModel->endSession();
    return QObject::eventFilter(watched, event);
}

} // namespace sonavo
