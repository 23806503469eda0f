#include "analysis/analyze_duplicates.h"

#include "analysis/duplicate_finder.h"
#include "model/translate.h"

namespace sonavo {

using namespace std::chrono_literals;

QCoro::Task<QList<DuplicateGroup>> analyzeDuplicates(QList<Song> songs, std::shared_ptr<Pauses> pauses,
                                                     BackgroundThread background, std::stop_token stop,
                                                     AnalysisProgressSink reportProgress)
{
    constexpr auto STEP_PAUSE = 100ms;
    constexpr auto BATCH_PAUSE = 10ms;
    // Made and destroyed in the background, too.
    std::unique_ptr<DuplicateFinder> finder;

    reportProgress({0.05, translate("Analysis", "Step 1/4: Grouping by exact title...")});
    co_await pauses->wait(STEP_PAUSE);
    co_await background([&] {
        finder = std::make_unique<DuplicateFinder>(std::move(songs), stop);
        finder->groupByTitle();
    });

    reportProgress({0.25, translate("Analysis", "Step 2/4: Analyzing filename similarities...")});
    co_await pauses->wait(STEP_PAUSE);
    co_await background([&] { finder->groupByFileName(); });

    reportProgress({0.5, translate("Analysis", "Step 3/4: Comparing artist and title...")});
    co_await pauses->wait(STEP_PAUSE);
    auto batches = DuplicateFinder::Batches::MoreToCome;
    co_await background([&] {
        finder->prepareBatches();
        batches = finder->groupNextBatchByArtistAndTitle();
    });
    while (batches == DuplicateFinder::Batches::MoreToCome) {
        co_await pauses->wait(BATCH_PAUSE);
        co_await background([&] { batches = finder->groupNextBatchByArtistAndTitle(); });
    }

    reportProgress({0.75, translate("Analysis", "Step 4/4: Deep comparison of remaining songs...")});
    co_await pauses->wait(STEP_PAUSE);
    QList<DuplicateGroup> groups;
    co_await background([&] {
        finder->groupByWholeSeconds();
        groups = finder->takeGroups();
        finder.reset();
    });

    reportProgress({1.0, std::nullopt});
    co_return groups;
}

} // namespace sonavo
