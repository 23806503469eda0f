#include "session/event_loop_pauses.h"

#include <QCoroTimer>

namespace sonavo {

QCoro::Task<> EventLoopPauses::wait(std::chrono::milliseconds length)
{
    return QCoro::sleepFor(length);
}

} // namespace sonavo
