#pragma once

#include <QString>

namespace sonavo {

/// Removes what moves have left over whose process was killed, as recorded in the journals of a folder that
/// no living process has locked; the last record of each first:
///
/// - What was made to stand beside the source (a copy, a second name, a link, an empty file) is removed if it
///   is ours, unchanged, and the source is at its old path with the content that was moved.
/// - A source under a private name is put back, unless its old name is taken.
/// - An info file is removed if it says exactly what was recorded and the file is not in the Trash.
/// - A line is removed if it still is the last and the file that it is about is not there.
///
/// What cannot be decided or done now, for instance because a disk is not there, stays recorded for the next
/// time. It takes as long as the disks do. Any thread may call it; several at once do not disturb each other.
void cleanUpUnfinishedMoves(const QString &folder);

} // namespace sonavo
