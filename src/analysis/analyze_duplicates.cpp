#include "analysis/analyze_duplicates.h"

#include "analysis/duplicate_finder.h"

namespace sonavo {

using namespace std::chrono_literals;

QCoro::Task<QList<DuplicateGroup>> analyzeDuplicates(QList<Song> songs, std::shared_ptr<Pauses> pauses,
                                                     AnalysisProgressSink reportProgress)
{
    constexpr auto STEP_PAUSE = 100ms;
    constexpr auto BATCH_PAUSE = 10ms;

    reportProgress({0.05, QStringLiteral("Step 1/4: Grouping by exact title...")});
    co_await pauses->wait(STEP_PAUSE);
    DuplicateFinder finder(std::move(songs));
    finder.groupByTitle();

    reportProgress({0.25, QStringLiteral("Step 2/4: Analyzing filename similarities...")});
    co_await pauses->wait(STEP_PAUSE);
    finder.groupByFileName();

    reportProgress({0.5, QStringLiteral("Step 3/4: Comparing artist and title...")});
    co_await pauses->wait(STEP_PAUSE);
    finder.prepareBatches();
    while (finder.groupNextBatchByArtistAndTitle() == DuplicateFinder::Batches::MoreToCome)
        co_await pauses->wait(BATCH_PAUSE);

    reportProgress({0.75, QStringLiteral("Step 4/4: Deep comparison of remaining songs...")});
    co_await pauses->wait(STEP_PAUSE);
    finder.groupByWholeSeconds();

    reportProgress({1.0, std::nullopt});
    co_return finder.takeGroups();
}

} // namespace sonavo
