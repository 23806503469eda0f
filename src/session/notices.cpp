#include "session/notices.h"

#include <utility>

namespace sonavo {

using namespace std::chrono_literals;

Notices::Notices(std::shared_ptr<Pauses> pauses, QObject *parent)
    : QObject(parent)
    , m_pauses(std::move(pauses))
{}

void Notices::raiseAlert(const QString &message)
{
    State state = m_state;
    state.isAlertShown = true;
    state.alertMessage = message;
    set(std::move(state));
}

void Notices::setAlertShown(bool isShown)
{
    State state = m_state;
    state.isAlertShown = isShown;
    set(std::move(state));
}

void Notices::clearAlert()
{
    State state = m_state;
    state.isAlertShown = false;
    state.alertMessage.clear();
    set(std::move(state));
}

void Notices::showToast(const QString &message, ToastType type, const QString &action, ToastAction kind)
{
    State state = m_state;
    ++state.toastNumber;
    m_isToastOverdue = false;
    if (action.isEmpty())
        hideToastLater(this);
    else if (kind != ToastAction::ScanAll)
        endToastWithAction(this, state.toastNumber);
    state.isToastShown = true;
    state.toastMessage = message;
    state.toastType = type;
    state.toastAction = action;
    state.toastActionKind = kind;
    set(std::move(state));
}

QCoro::Task<> Notices::hideToastLater(QPointer<Notices> self)
{
    const std::shared_ptr<Pauses> pauses = self->m_pauses;
    co_await pauses->wait(3s);
    if (self && self->m_state.toastAction.isEmpty())
        self->setToastShown(false);
}

QCoro::Task<> Notices::endToastWithAction(QPointer<Notices> self, int number)
{
    const std::shared_ptr<Pauses> pauses = self->m_pauses;
    co_await pauses->wait(8s);
    if (!self || self->m_state.toastNumber != number)
        co_return;
    self->m_isToastOverdue = true;
    self->hideOverdueToast();
}

void Notices::hideOverdueToast()
{
    const bool isKept = m_isToastHeld && !m_state.toastAction.isEmpty();
    if (m_isToastOverdue && !isKept)
        setToastShown(false);
}

void Notices::holdToast(bool isHeld)
{
    m_isToastHeld = isHeld;
    hideOverdueToast();
}

void Notices::removeToastAction(ToastAction kind)
{
    if (m_state.toastAction.isEmpty() || m_state.toastActionKind != kind)
        return;
    State state = m_state;
    state.toastAction.clear();
    // It has no time after which it would go by itself.
    state.isToastShown = state.isToastShown && kind != ToastAction::ScanAll;
    set(std::move(state));
}

void Notices::setToastShown(bool isShown)
{
    State state = m_state;
    state.isToastShown = isShown;
    // The view that told it is gone.
    m_isToastHeld = m_isToastHeld && isShown;
    set(std::move(state));
}

void Notices::set(State state)
{
    if (state == m_state)
        return;
    const State before = std::exchange(m_state, std::move(state));
    Q_EMIT changed(before);
}

} // namespace sonavo
