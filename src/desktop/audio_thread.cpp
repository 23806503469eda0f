#include "desktop/audio_thread.h"

#include <QCoreApplication>

namespace sonavo {
namespace {

QThread *startAudioThread()
{
    auto *thread = new QThread;
    thread->setObjectName(QStringLiteral("audio"));
    thread->start();
    qAddPostRoutine([] {
        using namespace std::chrono_literals;
        audioThread().quit();
        // A sound server that does not answer must not keep the application from ending.
        audioThread().wait(QDeadlineTimer(2s));
    });
    return thread;
}

} // namespace

QThread &audioThread()
{
    // Never deleted: it can still be blocked when the application ends.
    static QThread *const thread = startAudioThread();
    return *thread;
}

} // namespace sonavo
