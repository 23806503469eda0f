#include "session/event_loop_pauses.h"

#include <QCoroTimer>
#include <QTimer>

namespace sonavo {

QCoro::Task<> EventLoopPauses::wait(std::chrono::milliseconds length)
{
    QTimer timer;
    timer.setSingleShot(true);
    // The pauses of a large scan are many and short: what a coarse timer adds to each would add up.
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(length);
    co_await timer;
}

} // namespace sonavo
