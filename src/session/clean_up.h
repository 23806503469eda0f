#pragma once

#include "actions/clean_up.h"
#include "actions/desktop.h"
#include "session/library.h"
#include "session/notices.h"
#include "session/preview.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace sonavo {

/// Removes duplicates and songs from the disk and from the library, and shows the outcome in a toast. The
/// files are moved before a call returns, so there is no state to show. If a song that is removed is being
/// previewed, the preview is stopped first. Main thread only.
class CleanUp : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the clean-ups.
    CleanUp(Desktop &desktop, Library &library, Preview &preview, Notices &notices,
            std::shared_ptr<Pauses> pauses, QObject *parent = nullptr);

    /// Moves every duplicate into a new folder inside one that the user chooses, and copies the new folder's
    /// path to the clipboard; a second toast says so after a second. The dialog runs the event loop: when the
    /// result has changed meanwhile, nothing is moved. Duplicates that could not be moved leave the library
    /// as well.
    void moveDuplicatesToFolder();

    /// Sends every duplicate to the Trash. Duplicates that could not be moved leave the library as well.
    void trashDuplicates();

    /// Sends one song's file to the Trash and repairs the group that held it. On failure the library stays as
    /// it is. A song whose file is already gone is removed from the songs without a toast, and stays in its
    /// group.
    /// @param song by value: the caller's may be one that the library or the preview drops meanwhile
    void deleteSong(Song song);

private:
    static QCoro::Task<> announceCopiedPath(QPointer<Notices> notices, std::shared_ptr<Pauses> pauses);

    void stopPreviewOfDuplicates();
    /// @param moved, partlyMoved the text when all files were moved and when some failed; %1 is the number
    void finish(const CleanUpOutcome &outcome, const QString &moved, const QString &partlyMoved);

    Desktop &m_desktop;
    Library &m_library;
    Preview &m_preview;
    Notices &m_notices;
    const std::shared_ptr<Pauses> m_pauses;
};

} // namespace sonavo
