#include "session/read_songs.h"

#include "import/song_read_ahead.h"

#include <QCoroFuture>

namespace sonavo {
namespace {

constexpr qint64 FILES_PER_REPORT = 50;
constexpr qint64 FILES_PER_PAUSE = 200;
constexpr std::chrono::milliseconds PAUSE{10};

} // namespace

QCoro::Task<std::optional<ReadSongs>> readSongs(QStringList files, std::shared_ptr<KnownDurations> known,
                                                std::shared_ptr<Pauses> pauses, std::stop_token stop,
                                                std::function<void(qint64 processed)> reportProgress)
{
    SongReadAhead readAhead(files, stop, known);
    ReadSongs result;
    result.songs.reserve(files.size());
    result.notes.reserve(files.size());
    SongBuilder builder;
    qint64 processed = 0;
    while (readAhead.hasMore()) {
        const auto batch = co_await readAhead.next();
        if (stop.stop_requested())
            co_return std::nullopt;
        for (const auto &file : batch) {
            if (file) {
                result.songs.append(builder.build(files.at(processed), *file));
                result.notes.append(file->note);
                result.lossless.add(result.songs.last(), file->isLossless);
            }
            ++processed;
            if (processed % FILES_PER_REPORT == 0)
                reportProgress(processed);
            if (processed % FILES_PER_PAUSE == 0 && !stop.stop_requested())
                co_await pauses->wait(PAUSE);
            if (stop.stop_requested())
                co_return std::nullopt;
        }
    }
    co_return result;
}

} // namespace sonavo
