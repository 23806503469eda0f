#pragma once

#include "actions/desktop.h"
#include "session/clean_up_work.h"
#include "session/file_job.h"
#include "session/library.h"
#include "session/notices.h"
#include "session/preview.h"
#include "session/scan.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>

namespace sonavo {

/// Removes duplicates and songs from the disk and from the library, puts them back, and shows the outcome in
/// a toast. A job moves the files: each operation returns at once, and while a job or a scan is running, it
/// does nothing. If a song that is removed is being previewed, the preview is stopped first. Main thread
/// only.
class CleanUp : public QObject
{
    Q_OBJECT

public:
    struct State
    {
        /// Of the last clean-up of all duplicates, until songs are scanned anew or it is undone; may be null.
        std::shared_ptr<const CleanUpSummary> summary;

        friend bool operator==(const State &, const State &) = default;
    };

    /// What a clean-up works with; all must outlive it.
    struct Session
    {
        Desktop &desktop;
        Library &library;
        Preview &preview;
        Notices &notices;
        const Scan &scan;
        FileJob &job;
    };

    CleanUp(const Session &session, std::shared_ptr<Pauses> pauses, QObject *parent = nullptr);

    [[nodiscard]] const State &state() const { return m_state; }

    /// Moves every duplicate into a new folder inside one that the user chooses, and copies the new folder's
    /// path to the clipboard; a second toast says so after a second. The dialog runs the event loop: when the
    /// result has changed meanwhile, nothing is moved. Duplicates that could not be moved leave the library
    /// as well; those that were not reached because the job was stopped stay.
    void moveDuplicatesToFolder();

    /// Sends every duplicate to the Trash, in the same way.
    void trashDuplicates();

    /// The same with the duplicates of one group. Its summary is shown only when files could not be moved or
    /// no duplicates are left. Does nothing when no group has the song.
    /// @param member the id of one of its songs
    void moveGroupToFolder(QUuid member);
    void trashGroup(QUuid member);

    /// Tries again to move the songs that the last clean-up could not move, to where it moved the others.
    void retry();

    /// Sends one song's file to the Trash and repairs the group that held it. On failure the library stays as
    /// it is. A song whose file is already gone is removed from the songs without a toast, and stays in its
    /// group. The preview of a song whose group has no duplicates left ends.
    void deleteSong(const Song &song);

    /// Puts the files of the last step back where they were, and the songs into the library, unless it holds
    /// those of another scan by now. What could not be put back is named in an alert. A step that has moved
    /// no files is taken back.
    void undo();

Q_SIGNALS:
    void changed(const sonavo::CleanUp::State &before);

private:
    static QCoro::Task<> announceCopiedPath(QPointer<CleanUp> self, std::shared_ptr<Pauses> pauses,
                                            std::weak_ptr<const UndoStep> step);

    [[nodiscard]] bool isBusy() const;
    [[nodiscard]] bool isShown(quint64 scan) const { return m_session.library.scanResult().id == scan; }
    [[nodiscard]] CleanUpPlan plan(CleanUpTarget target) const;
    [[nodiscard]] std::optional<CleanUpPlan> planForGroupOf(QUuid member, CleanUpTarget target) const;
    void stopPreviewOfDuplicates(const QList<DuplicateGroup> &groups);
    void stopPreviewWithoutRow(const WorkResult &result);
    void chooseFolderAndStart(CleanUpPlan plan);
    void start(const CleanUpPlan &plan);

    // What a job has done. The library can hold the songs of another scan by then, or none.
    void publish(quint64 scan, const CleanedUp &cleaned);
    void publish(quint64 scan, const Song &song, const DeletedSong &deleted);
    void publish(quint64 scan, const UndoStep &step, const UndoneStep &undone);

    void setSummary(const std::shared_ptr<const CleanUpSummary> &summary);
    void forgetOtherScan();
    void set(State state);

    const Session m_session;
    const std::shared_ptr<Pauses> m_pauses;
    State m_state;
    /// The scan that the summary is about.
    quint64 m_summaryScan = 0;
    /// Whose songs are listed.
    quint64 m_listedScan = 0;
};

} // namespace sonavo
