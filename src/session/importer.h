#pragma once

#include "actions/desktop.h"
#include "import/disk_task.h"
#include "session/file_job.h"
#include "session/library.h"
#include "session/notices.h"
#include "session/scan.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUrl>

#include <functional>

namespace sonavo {

/// Takes in what the user drops or chooses and starts a scan of it, as far as the limits of a session allow.
/// Main thread only.
class Importer : public QObject
{
    Q_OBJECT

public:
    /// The most songs that are imported without asking, and the most that can be imported at all.
    static constexpr qint64 OPTIMAL_LIMIT = 10'000;
    static constexpr qint64 MAXIMUM_LIMIT = 500'000;

    struct State
    {
        /// Whether the user must be asked about an import of more than OPTIMAL_LIMIT songs.
        bool isAsking = false;
        /// The items of that import.
        QList<QUrl> pendingUrls;
        /// Items from another program, when the user must be asked whether they may replace the result.
        QList<QUrl> openedUrls = {};
        /// What was dropped together, when only the last of it was scanned.
        QList<QUrl> droppedUrls = {};

        friend bool operator==(const State &, const State &) = default;
    };

    /// All must outlive the importer.
    Importer(Desktop &desktop, const Library &library, const FileJob &job, Scan &scan, Notices &notices,
             QObject *parent = nullptr);

    [[nodiscard]] const State &state() const { return m_state; }
    void setAsking(bool isAsking);
    void setPendingUrls(const QList<QUrl> &urls);

    // An import beyond MAXIMUM_LIMIT raises an alert, one beyond OPTIMAL_LIMIT waits for the user's answer.
    // Songs already in the session count towards both limits. Nothing is imported while a job moves files.
    //
    // The first four estimate the number of songs. Each returns whether a scan was started at once: while a
    // disk takes its time it is false, and the import goes on when the disk has answered, unless another one
    // begins or the session is cleared by then. An estimate that hangs is 0.

    /// Imports file URLs that were dropped as one item.
    bool importDroppedItems(const QList<QUrl> &urls);
    /// Imports what was dropped together, one item after the other, so that only the last one stays. When
    /// there is more than one, a toast says so, and all of them can be scanned together. What is not local
    /// is ignored, and other files beside music.
    bool importDrop(const QList<QUrl> &urls);
    /// Imports file URLs that the user chose together.
    bool importChosenItems(const QList<QUrl> &urls);
    /// Lets the user choose files and folders in a dialog, and imports them. The event loop runs meanwhile;
    /// nothing is imported if the session is cleared by then.
    bool importWithOpenPanel();

    // These begin with the scan, which counts the songs before it reads them.

    /// As "Scan All 3", and what was scanned instead of all; empty unless droppedUrls are there.
    [[nodiscard]] QString scanAllText() const;
    [[nodiscard]] QString scanAllNote() const;
    /// Imports droppedUrls together.
    void scanAllDropped();

    /// Imports file URLs from the command line or from another program. A result that still has duplicates
    /// is replaced only when the user agrees. @return false, with a toast, when a job moves files
    bool openItems(const QList<QUrl> &urls);
    /// What the user is asked about openedUrls; empty when nothing is.
    [[nodiscard]] QString openQuestion() const;
    /// The user's answers.
    void acceptOpenedItems();
    void declineOpenedItems();

    /// Scans without asking, in place of a scan that may be running; nothing is pending then. An empty list
    /// does nothing, nor does any while a job moves files.
    /// @param urls may be the pending ones
    void startScan(QList<QUrl> urls);

    /// Forgets what is pending.
    void reset();

Q_SIGNALS:
    void changed(const sonavo::Importer::State &before);

private:
    struct Item;

    /// @param import is given what is found, at once or later; returns whether it has started a scan
    template <typename T>
    bool importAfter(const DiskLook<T> &look, const std::function<bool(const T &)> &import);
    template <typename T>
    static QCoro::Task<> importLater(QPointer<Importer> self, DiskLook<T> look,
                                     std::function<bool(const T &)> import);
    bool importEstimated(const QList<QUrl> &urls, const QString &refusal);
    bool importEach(const QList<QUrl> &urls, const QList<Item> &items);
    /// Counts truly, in the scan itself.
    void importCounted(const QList<QUrl> &urls, const QString &refusal);
    void beginScan(QList<QUrl> urls, std::optional<Scan::Limit> limit);
    /// @return whether that many can be imported; raises the alert or asks otherwise
    bool isWithinLimits(const QList<QUrl> &urls, qint64 songs, const QString &refusal);
    void set(State state);
    void announce(const State &before);

    Desktop &m_desktop;
    const Library &m_library;
    const FileJob &m_job;
    Scan &m_scan;
    Notices &m_notices;
    State m_state;
    quint64 m_resetCount = 0;
    /// Counts what ends an import that still waits for a disk.
    quint64 m_importCount = 0;
};

} // namespace sonavo
