#pragma once

#include "analysis/pauses.h"
#include "import/known_durations.h"
#include "session/library.h"
#include "session/notices.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Finds the audio files among files and folders, reads them into the songs of the library and finds the
/// duplicates among them. Works a step at a time between turns of the event loop; what waits for a disk and
/// what computes for long run in other threads. Main thread only.
class Scan : public QObject
{
    Q_OBJECT

public:
    /// How many files a scan may read.
    struct Limit
    {
        qint64 files;
        /// Called when it has found more: it has ended then, and the library is as it was.
        std::function<void(qint64 found)> onExceeded;
    };

    struct State
    {
        bool isRunning = false;
        /// From 0.0 to 1.0, of the current part; it goes back when the next part begins.
        double progress = 0.0;
        /// Files read so far, of totalFiles.
        qint64 processedFiles = 0;
        qint64 totalFiles = 0;
        /// Files that the walk of the folders has found so far.
        qint64 foundFiles = 0;
        /// What the scan is doing.
        QString message;

        friend bool operator==(const State &, const State &) = default;
    };

    /// @param library receives the songs once all are read, and then the groups; must outlive the scan
    /// @param notices told when nothing was found; must outlive the scan
    /// @param known makes the next scan read only the files that have changed; may be null
    Scan(Library &library, Notices &notices, std::shared_ptr<Pauses> pauses,
         std::shared_ptr<KnownDurations> known = {}, QObject *parent = nullptr);
    /// Cancels a running scan.
    ~Scan() override;
    Q_DISABLE_COPY_MOVE(Scan)

    [[nodiscard]] const State &state() const { return m_state; }

    /// Scans these items, in place of a scan that may be running. Returns at once.
    /// @param urls file URLs; others contribute nothing
    void start(QList<QUrl> urls, std::optional<Limit> limit = {});

    /// Cancels a running scan, which publishes nothing more, and returns to the initial state.
    void reset();

Q_SIGNALS:
    void changed(const sonavo::Scan::State &before);

private:
    class Run;

    static QCoro::Task<> scan(Run run, QList<QUrl> urls, std::optional<Limit> limit,
                              std::shared_ptr<KnownDurations> known, std::shared_ptr<Pauses> pauses);
    void set(State state);

    Library &m_library;
    Notices &m_notices;
    const std::shared_ptr<Pauses> m_pauses;
    const std::shared_ptr<KnownDurations> m_known;
    State m_state;
    /// Cancels the running scan, or the last one.
    std::stop_source m_stop{std::nostopstate};
};

} // namespace sonavo
