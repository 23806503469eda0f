#include "desktop/sound_thread.h"

#include <QCoreApplication>

namespace sonavo {
namespace {

QThread *startSoundThread()
{
    auto *thread = new QThread;
    thread->setObjectName(QStringLiteral("sound"));
    thread->start();
    qAddPostRoutine([] {
        using namespace std::chrono_literals;
        soundThread().quit();
        // A sound server that does not answer must not keep the application from ending.
        soundThread().wait(QDeadlineTimer(2s));
    });
    return thread;
}

} // namespace

QThread &soundThread()
{
    // Never deleted, because it can still be waiting when the application ends.
    static QThread *const thread = startSoundThread();
    return *thread;
}

} // namespace sonavo
