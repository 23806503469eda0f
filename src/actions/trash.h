#pragma once

#include "actions/failure.h"

#include <QString>

#include <optional>

namespace sonavo {

/// Moves a file, or a link itself, to the Trash of the disk that it is on, laid out as freedesktop.org has it
/// (Trash 1.0), so that any file manager can restore it: to the Trash in the person's data folder
/// ($XDG_DATA_HOME/Trash) or to the one at the top of another disk (.Trash/UID or .Trash-UID).
///
/// It is one renaming: nothing is ever copied, removed or overwritten, and on failure the file is where it
/// was. Folders are refused. Any thread may call it.
[[nodiscard]] std::optional<Failure> moveToTrash(const QString &path);

} // namespace sonavo
