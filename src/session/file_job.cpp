#include "session/file_job.h"

#include "session/clean_up_text.h"

#include <QCoreApplication>

#include <algorithm>

namespace sonavo {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds SHOWN_AFTER = 333ms;
constexpr std::chrono::milliseconds UPDATE_INTERVAL = 33ms;

QThreadPool *createThread()
{
    qAddPostRoutine([] { fileJobThread().waitForDone(); });
    auto *pool = new QThreadPool;
    pool->setMaxThreadCount(1);
    return pool;
}

} // namespace

QThreadPool &fileJobThread()
{
    // Leaked, so that the end of the process does not depend on the order of static destructors.
    static QThreadPool *const pool = createThread();
    return *pool;
}

FileJob::FileJob(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(UPDATE_INTERVAL);
    connect(&m_timer, &QTimer::timeout, this, &FileJob::update);
}

FileJob::~FileJob()
{
    if (m_progress)
        m_progress->stop.request_stop();
}

FileJob::Control FileJob::begin(const QString &message, qint64 files)
{
    m_progress = std::make_shared<Progress>();
    m_message = message;
    m_files = files;
    m_elapsed.start();
    m_timer.start();
    State state;
    state.isRunning = true;
    set(std::move(state));
    return {m_progress->stop.get_token(), [progress = m_progress](qint64 done) { progress->done = done; }};
}

void FileJob::end()
{
    m_timer.stop();
    m_progress.reset();
    set({});
}

void FileJob::requestStop()
{
    if (!m_state.isRunning)
        return;
    m_progress->stop.request_stop();
    State state = m_state;
    state.isStopping = true;
    set(std::move(state));
}

void FileJob::update()
{
    const std::chrono::milliseconds elapsed(m_elapsed.elapsed());
    if (elapsed < SHOWN_AFTER)
        return;
    const qint64 done = std::min<qint64>(m_progress->done, m_files);
    State state = m_state;
    state.isShown = true;
    state.message = m_message;
    if (m_message.contains(u'%'))
        state.message = m_message.arg(std::min(done + 1, m_files)).arg(m_files);
    state.fraction = m_files > 0 ? static_cast<double>(done) / static_cast<double>(m_files) : 0.0;
    state.timeLeft = timeLeftText(elapsed, done, m_files);
    set(std::move(state));
}

void FileJob::set(State state)
{
    if (state == m_state)
        return;
    const State before = std::exchange(m_state, std::move(state));
    Q_EMIT changed(before);
}

} // namespace sonavo
