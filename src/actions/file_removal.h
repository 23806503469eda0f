#pragma once

#include "actions/file_snapshot.h"

#include <QByteArray>

#include <functional>

namespace sonavo {

class MoveJournal;

/// A name of our own in the folder of a path: ".sonavo-" and 64 random bits, so that nobody else has it.
[[nodiscard]] QByteArray privateNameBeside(const QByteArray &path);

/// What became of a file that was to be removed.
struct RemovalResult
{
    enum class State
    {
        Removed,
        /// It is still there, under its own name.
        Kept,
        /// Something else is there, it was changed, or the file system does not tell.
        Uncertain,
    };
    State state = State::Removed;
    /// As in errno; 0 if removed.
    int error = 0;
    /// The private name of a file that could not get its own name back; empty otherwise.
    QByteArray leftAt = {};
};

/// Removes a file that was looked at a moment ago, even where somebody puts another file in its place
/// meanwhile: it gets a private name, is looked at once more, and only then is removed. What turns out to be
/// something else gets its name back, unless that is taken again. Any thread may call it.
/// @param file a name of our own is removed at once
/// @param journal may be null
[[nodiscard]] RemovalResult removeFile(const KnownFile &file, MoveJournal *journal);

/// The same for what is recognised in another way.
/// @param mayGo is asked about the file under its private name
/// @return Kept, too, when nothing or something else is at the path; the error is EBUSY when `mayGo` said no
[[nodiscard]] RemovalResult removeFileIf(const QByteArray &path,
                                         const std::function<bool(const QByteArray &path)> &mayGo,
                                         MoveJournal *journal);

} // namespace sonavo
