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

void Notices::showToast(const QString &message, ToastType type)
{
    hideToastLater(this);
    State state = m_state;
    state.isToastShown = true;
    state.toastMessage = message;
    state.toastType = type;
    set(std::move(state));
}

QCoro::Task<> Notices::hideToastLater(QPointer<Notices> self)
{
    const std::shared_ptr<Pauses> pauses = self->m_pauses;
    co_await pauses->wait(3s);
    if (self)
        self->setToastShown(false);
}

void Notices::setToastShown(bool isShown)
{
    State state = m_state;
    state.isToastShown = isShown;
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
