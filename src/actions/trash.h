#pragma once

#include "actions/failure.h"
#include "actions/file_move.h"

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
};

/// Moves a file, or a link itself, to the Trash of the disk that it is on, in freedesktop.org's format
/// (Trash 1.0), so that any file manager can restore it: to the Trash in the user's data folder
/// ($XDG_DATA_HOME/Trash) or to the one at the top of another disk (.Trash/UID or .Trash-UID).
///
/// It is one renaming: nothing is ever copied or overwritten. On failure the file is where it was, or the
/// reason names the two places where it can be. Folders are refused. Any thread may call it.
[[nodiscard]] std::variant<TrashedFile, Failure> moveToTrash(const QString &path,
                                                             const MoveOptions &options = {});

/// Moves a file back to where it was and removes its info file. Fails, and changes nothing, when its old name
/// is taken or when what is in the Trash is not the file that was moved there.
[[nodiscard]] PutBackResult restore(const TrashedFile &trashed, const MoveOptions &options = {});

} // namespace sonavo
