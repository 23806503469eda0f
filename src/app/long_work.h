#pragma once

#include "desktop/launcher_progress.h"
#include "desktop/notification.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace sonavo {

class DuplicateViewModel;

/// Tells the desktop of scans and clean-ups: how far they are, and how they have ended if that took longer
/// than ten seconds and the window is not active. Does nothing without a session bus, and waits for none.
/// Main thread only.
class LongWork : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this.
    LongWork(const DuplicateViewModel &viewModel, const QWindow &window, QObject *parent = nullptr);

Q_SIGNALS:
    /// The user has clicked the notification.
    void activated(const QString &activationToken);

private:
    enum class Work
    {
        None,
        Scan,
        CleanUp,
    };

    void useBus(const QDBusConnection &bus);
    void followWork();
    void showProgress();
    [[nodiscard]] Work currentWork() const;
    [[nodiscard]] QString outcomeOf(Work work) const;

    const DuplicateViewModel &m_viewModel;
    const QWindow &m_window;
    std::unique_ptr<Notification> m_notification;
    std::unique_ptr<LauncherProgress> m_launcher;
    Work m_work = Work::None;
    QElapsedTimer m_elapsed;
    QTimer m_timer;
};

} // namespace sonavo
