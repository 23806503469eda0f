#pragma once

#include "analysis/pauses.h"
#include "model/song.h"

#include <QCoroTask>
#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Reads files into songs, in order, skipping those that cannot be read. Pauses for 10 ms every 200 files.
/// @param files absolute paths
/// @param reportProgress called every 50 files with the number of files handled so far
/// @return the songs; nothing when `stop` was requested meanwhile
[[nodiscard]] QCoro::Task<std::optional<QList<Song>>>
readSongs(QStringList files, std::shared_ptr<Pauses> pauses, std::stop_token stop,
          std::function<void(qint64 processed)> reportProgress);

} // namespace sonavo
