#pragma once

#include "actions/desktop.h"
#include "session/library.h"
#include "session/notices.h"
#include "session/scan.h"

#include <QList>
#include <QObject>
#include <QUrl>

namespace sonavo {

/// Takes in what the user drops or chooses and starts a scan of it, as far as the limits of a session allow.
/// Main thread only.
class Importer : public QObject
{
    Q_OBJECT

public:
    /// Songs in a session that start without asking, and that may be imported at all.
    static constexpr qint64 OPTIMAL_LIMIT = 10'000;
    static constexpr qint64 MAXIMUM_LIMIT = 500'000;

    struct State
    {
        /// Whether the user is to be asked about an import of more than OPTIMAL_LIMIT songs.
        bool isAsking = false;
        /// The items of that import.
        QList<QUrl> pendingUrls;

        friend bool operator==(const State &, const State &) = default;
    };

    /// All must outlive the importer.
    Importer(Desktop &desktop, const Library &library, Scan &scan, Notices &notices,
             QObject *parent = nullptr);

    [[nodiscard]] const State &state() const { return m_state; }
    void setAsking(bool isAsking);
    void setPendingUrls(const QList<QUrl> &urls);

    // Each takes file URLs and tells whether a scan was started. An import beyond MAXIMUM_LIMIT raises an
    // alert, one beyond OPTIMAL_LIMIT waits for the user's answer. Both count the songs of the session, too.

    /// What was dropped as one item.
    bool importDroppedItems(const QList<QUrl> &urls);
    /// What was dropped together, each item by itself, so that the last one stands; a toast says so when
    /// there is more than one to import. What is not a file is ignored.
    bool importDrop(const QList<QUrl> &urls);
    /// What the user named all together.
    bool importChosenItems(const QList<QUrl> &urls);
    /// What the user chooses in a dialog now. The event loop runs meanwhile; the answer is void when the
    /// session was cleared by then.
    bool importWithOpenPanel();

    /// Scans without asking, in place of a scan that may be running; nothing is pending then. An empty list
    /// does nothing.
    /// @param urls may be the pending ones
    void startScan(QList<QUrl> urls);

    /// Forgets what is pending.
    void reset();

Q_SIGNALS:
    void changed(const sonavo::Importer::State &before);

private:
    bool importWithinLimits(const QList<QUrl> &urls, const QString &refusal);
    void set(State state);

    Desktop &m_desktop;
    const Library &m_library;
    Scan &m_scan;
    Notices &m_notices;
    State m_state;
    quint64 m_resetCount = 0;
};

} // namespace sonavo
