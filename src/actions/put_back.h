#pragma once

#include "actions/file_move.h"
#include "actions/file_snapshot.h"

#include <QString>

#include <optional>

namespace sonavo {

/// What became of a file that was to be put back.
struct PutBackResult
{
    enum class State
    {
        /// It is at its old path again; perhaps somebody else has moved it back.
        Back,
        /// It stays where it is; a later try can succeed.
        Stays,
        /// It is neither where it was moved to nor at its old path.
        Gone,
    };
    State state = State::Back;
    /// In words for the user; empty if the file is back.
    QString reason = {};
    /// Taken after the file was put back; nothing where that failed or another file is there already.
    std::optional<FileSnapshot> snapshot = {};
};

/// Move a file back to where it was, with renameWithoutReplacing() or moveWithoutReplacing(), and make the
/// folders again that are missing there. The file stays when its old name is taken, when the volume it was on
/// is not mounted, or when what is at `file.path` is not the file that was moved there.
[[nodiscard]] PutBackResult renameBack(const MovedFile &file, const MoveOptions &options = {});
[[nodiscard]] PutBackResult moveBack(const MovedFile &file, const MoveOptions &options = {});

} // namespace sonavo
