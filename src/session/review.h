#pragma once

#include "model/song.h"
#include "session/file_job.h"
#include "session/library.h"
#include "session/notices.h"
#include "session/preview.h"
#include "session/review_work.h"
#include "session/scan.h"
#include "session/undo_history.h"

#include <QObject>
#include <QString>

#include <functional>

namespace sonavo {

/// Takes what the user says about a result: that it is not enough, which copies are kept, and which songs are
/// no duplicates. No file is touched. Each is a step that can be undone (see CleanUp::undo()), is done by a
/// job, and is announced in a toast. While a job or a scan is running, they do nothing. Main thread only.
class Review : public QObject
{
    Q_OBJECT

public:
    /// What a review works with; all must outlive it.
    struct Session
    {
        Library &library;
        Preview &preview;
        Notices &notices;
        const Scan &scan;
        FileJob &job;
    };

    explicit Review(const Session &session, QObject *parent = nullptr);

    /// Shows what comparing every song with every other finds, instead of what the scan has found. Leaves the
    /// result as it is when that adds no duplicate, or when the job is stopped.
    void findMore();
    /// Shows what the scan has found again.
    void returnToFirstResult();

    /// Makes a song the original of its group.
    void keepSong(const Song &song);
    /// Makes the largest member that is in a folder or below it the original, in every group that has one.
    /// @param path absolute
    void keepCopiesIn(const QString &path);
    /// Makes the largest lossless member the original, in every group that has one.
    void keepLosslessCopies();
    /// Takes a song out of its group. It stays among the songs; a group of one leaves the list.
    void excludeFromDuplicates(const Song &song);

private:
    using ToastText = std::function<QString(qint64 count)>;

    /// @param message shown while it is running
    /// @param toast given Reviewed::count
    void take(UndoStep step, const QString &message, const ToastText &toast);
    void publish(const UndoStep &step, const Reviewed &result, const ToastText &toast);
    [[nodiscard]] bool isShown(quint64 scan) const { return m_session.library.scanResult().id == scan; }

    const Session m_session;
};

} // namespace sonavo
