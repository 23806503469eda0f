#pragma once

#include "actions/failure.h"
#include "actions/file_move.h"
#include "actions/put_back.h"

#include <QByteArray>
#include <QString>

#include <variant>

namespace sonavo {

/// A file in the Trash.
struct TrashedFile
{
    MovedFile file;
    /// The .trashinfo file, from which file managers know where the file was.
    QByteArray infoFile;
    /// Its content, by which it is known to be ours.
    QByteArray info = {};
};

/// Moves a file, or a link itself, to the Trash of the disk that it is on, in freedesktop.org's format
/// (Trash 1.0), so that any file manager can restore it: to the Trash in the user's data folder
/// ($XDG_DATA_HOME/Trash) or to the one at the top of another disk or subvolume (.Trash/UID or .Trash-UID),
/// which is also used where the user has no home. The info file is on the disk before the file moves.
///
/// It is one renaming: nothing is ever copied or overwritten. On failure the file is where it was, or the
/// reason names the two places where it can be. Folders are refused. Any thread may call it.
[[nodiscard]] std::variant<TrashedFile, Failure> moveToTrash(const QString &path,
                                                             const MoveOptions &options = {});

/// Moves a file back to where it was with renameBack(), and removes its info file if nobody has changed it.
[[nodiscard]] PutBackResult restore(const TrashedFile &trashed, const MoveOptions &options = {});

} // namespace sonavo
