#include "app/long_work.h"

#include "desktop/session_bus.h"
#include "session/duplicate_view_model.h"

#include <utility>

namespace sonavo {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds NOTIFIED_AFTER = 10s;
constexpr std::chrono::milliseconds PROGRESS_INTERVAL = 500ms;

} // namespace

LongWork::LongWork(const DuplicateViewModel &viewModel, const QWindow &window, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
    , m_window(window)
{
    m_timer.setInterval(PROGRESS_INTERVAL);
    connect(&m_timer, &QTimer::timeout, this, &LongWork::showProgress);
    for (const auto signal :
         {&DuplicateViewModel::isScanningChanged, &DuplicateViewModel::isCleaningUpChanged}) {
        // Later, when what has ended the work is published.
        connect(&viewModel, signal, this, &LongWork::followWork, Qt::QueuedConnection);
    }
    connectToSessionBus().then(this, [this](const QDBusConnection &bus) {
        if (bus.isConnected())
            useBus(bus);
    });
}

void LongWork::useBus(const QDBusConnection &bus)
{
    m_launcher = std::make_unique<LauncherProgress>(bus);
    m_notification = std::make_unique<Notification>(bus);
    connect(m_notification.get(), &Notification::activated, this, &LongWork::activated);
    connect(&m_window, &QWindow::activeChanged, m_notification.get(), &Notification::withdraw);
}

void LongWork::followWork()
{
    const Work ended = std::exchange(m_work, currentWork());
    if (ended == m_work)
        return;
    if (m_work != Work::None) {
        m_elapsed.start();
        m_timer.start();
        return;
    }
    m_timer.stop();
    if (m_launcher)
        m_launcher->show({});
    if (m_notification && !m_window.isActive() && m_elapsed.hasExpired(NOTIFIED_AFTER.count())) {
        if (const QString outcome = outcomeOf(ended); !outcome.isEmpty())
            m_notification->show(outcome);
    }
}

void LongWork::showProgress()
{
    if (m_launcher)
        m_launcher->show(m_work == Work::Scan ? m_viewModel.progress() : m_viewModel.cleanUpFraction());
}

LongWork::Work LongWork::currentWork() const
{
    if (m_viewModel.isScanning())
        return Work::Scan;
    return m_viewModel.isCleaningUp() ? Work::CleanUp : Work::None;
}

/// @return empty when the user has cancelled a scan
QString LongWork::outcomeOf(Work work) const
{
    if (m_viewModel.showAlert())
        return m_viewModel.alertMessage();
    if (work == Work::CleanUp)
        return m_viewModel.toastMessage();
    if (m_viewModel.songCount() == 0)
        return {};
    const int count = m_viewModel.duplicateCount();
    return count == 0 ? tr("No duplicates found") : tr("Found %Ln duplicate files", nullptr, count);
}

} // namespace sonavo
