#pragma once

#include "analysis/pauses.h"
#include "import/known_durations.h"
#include "model/file_note.h"
#include "model/lossless_songs.h"
#include "model/song.h"

#include <QCoroTask>
#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Songs, and what their files were when they were read.
struct ReadSongs
{
    QList<Song> songs;
    /// As many, in the same order.
    QList<FileNote> notes;
    LosslessSongs lossless;
};

/// Reads files into songs, in order, skipping those that cannot be read. Pauses for 10 ms every 200 files.
/// @param files absolute paths
/// @param known asked before a file is read, and told what it is; may be null
/// @param reportProgress called every 50 files with the number of files handled so far
/// @return the songs; nothing when `stop` was requested meanwhile
[[nodiscard]] QCoro::Task<std::optional<ReadSongs>>
readSongs(QStringList files, std::shared_ptr<KnownDurations> known, std::shared_ptr<Pauses> pauses,
          std::stop_token stop, std::function<void(qint64 processed)> reportProgress);

} // namespace sonavo
