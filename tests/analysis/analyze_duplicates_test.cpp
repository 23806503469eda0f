#include "analysis/analyze_duplicates.h"
#include "analysis/bucket_clusterer.h"
#include "analysis/clustering.h"
#include "analysis/comparable_song.h"
#include "analysis/direct_analysis.h"
#include "generators/library_generator.h"
#include "testing/arbitrary_songs.h"

#include <QCoroTask>
#include <QSet>
#include <QUuid>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <chrono>
#include <coroutine>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

using Lines = std::vector<std::string>;

/// Each pause lasts until its holder is resumed, and is written down when it is over.
class LoggedPauses : public Pauses
{
public:
    QCoro::Task<> wait(std::chrono::milliseconds length) override
    {
        struct Gate : std::suspend_always
        {
            std::coroutine_handle<> &holder;
            void await_suspend(std::coroutine_handle<> handle) const { holder = handle; }
        };
        co_await Gate{{}, holder};
        log.push_back("paused " + std::to_string(length.count()));
    }

    std::coroutine_handle<> holder;
    Lines log;
};

/// Each group as the original's place in `songs`, the places of the duplicates, and the slot: "3: 0 1, #5".
Lines linesOf(const QList<DuplicateGroup> &groups, const QList<Song> &songs)
{
    Lines lines;
    for (const DuplicateGroup &group : groups) {
        lines.push_back(placesOf({group.original}, songs) + ": " + placesOf(group.duplicates, songs) + ", #" +
                        std::to_string(group.color));
    }
    return lines;
}

struct Outcome
{
    Lines groups;
    /// Reports and pauses in their order.
    Lines log;
};

Outcome analyze(const QList<Song> &songs)
{
    Lines groups;
    const auto pauses = std::make_shared<LoggedPauses>();
    const auto report = [log = &pauses->log](const AnalysisProgress &progress) {
        const QString line = QString::number(progress.fraction) + u' ' + progress.message.value_or(u"-"_s);
        log->push_back(line.toStdString());
    };
    const auto run = analyzeDuplicates(songs, pauses, report).then([&](const QList<DuplicateGroup> &made) {
        groups = linesOf(made, songs);
        QSet<QUuid> ids{QUuid()};
        for (const DuplicateGroup &group : made)
            ids << group.id;
        EXPECT_EQ(ids.size(), made.size() + 1) << "groups share an id or have none";
    });
    while (pauses->holder)
        std::exchange(pauses->holder, nullptr).resume();
    EXPECT_TRUE(run.isReady());
    return {groups, pauses->log};
}

TEST(AnalyzeDuplicates, ReportsEachStepAndThenPausesEvenWithoutSongs)
{
    const Outcome outcome = analyze({});
    EXPECT_EQ(outcome.groups, Lines{});
    EXPECT_EQ(outcome.log,
              (Lines{"0.05 Step 1/4: Grouping by exact title...", "paused 100",
                     "0.25 Step 2/4: Analyzing filename similarities...", "paused 100",
                     "0.5 Step 3/4: Comparing artist and title...", "paused 100",
                     "0.75 Step 4/4: Deep comparison of remaining songs...", "paused 100", "1 -"}));
}

TEST(AnalyzeDuplicates, ComparesUnplacedSongsByArtistAndTitleInBatchesOf5000)
{
    const struct
    {
        int placed, before, between, batchPauses;
        Lines groups;
    } cases[] = {
        {0, 0, 4998, 0, {"0: 4999, #0"}},
        {0, 0, 4999, 1, {}},
        {2, 0, 4998, 0, {"0: 1, #0", "2: 5001, #1"}},
        {0, 5000, 4998, 1, {"5000: 9999, #0"}},
    };
    for (const auto &[placed, before, between, batchPauses, groups] : cases) {
        QList<Song> songs;
        const auto appendStrangers = [&songs](int count) {
            for (const qsizetype end = songs.size() + count; songs.size() < end;)
                songs << songOf(u"Queen"_s, u"x%1"_s.arg(songs.size()), 1000.0 + 10.0 * double(songs.size()));
        };
        for (int i = 0; i < placed; ++i)
            songs << songOf(u"Queen"_s, u"Sun"_s, 90.0);
        appendStrangers(before);
        // Step 3 alone can group these two: their artists have no words and their whole seconds differ.
        songs << songOf(u"!!!"_s, u"Love"_s, 179.9);
        appendStrangers(between);
        songs << songOf(u"!!!"_s, u"Love"_s, 180.1);
        const Outcome outcome = analyze(songs);
        EXPECT_EQ(outcome.groups, groups) << songs.size() << " songs";
        EXPECT_EQ(std::count(outcome.log.begin(), outcome.log.end(), "paused 10"), batchPauses);
    }
}

RC_GTEST_PROP(AnalyzeDuplicates, AgreesWithTheDirectAnalysis, ())
{
    const QList<Song> songs = *library(30);
    RC_ASSERT(analyze(songs).groups == linesOf(direct::analyzeDuplicates(songs), songs));
    const auto linesOfAll = [&songs](const QList<QList<Song>> &clusters) {
        Lines lines;
        for (const QList<Song> &cluster : clusters)
            lines.push_back(placesOf(cluster, songs));
        return lines;
    };
    RC_ASSERT(linesOfAll(clusterSongs(songs)) == linesOfAll(direct::clusterSongs(songs)));
}

TEST(AnalyzeDuplicates, AgreesWithTheDirectAnalysisOfALargeLibrary)
{
    // Most artists have no words, so that step 1 leaves more than a batch of songs.
    const QString artists[] = {u"!!!"_s, u"Кино"_s, u"椎名林檎"_s, u"Sonomirage"_s, u"Sonomirago"_s};
    std::mt19937 random(20);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    QList<Song> songs;
    for (int i = 0; i < 9000; ++i) {
        const int recording = below(2500);
        const QString title = u"Song %1"_s.arg(recording) + (below(4) == 0 ? u" Live"_s : u""_s);
        const double duration = recording % 1250 + below(100) / 50.0;
        songs << songOf(artists[below(5)], title, duration, u"%1.mp3"_s.arg(below(9000)), below(3));
        songs.last().path = QString::number(below(20'000));
    }
    const Outcome outcome = analyze(songs);
    EXPECT_EQ(std::count(outcome.log.begin(), outcome.log.end(), "paused 10"), 1);
    EXPECT_EQ(outcome.groups, linesOf(direct::analyzeDuplicates(songs), songs));
}

constexpr LibraryKind KINDS[] = {LibraryKind::Realistic, LibraryKind::NumberedTracks, LibraryKind::OneArtist,
                                 LibraryKind::TenSeconds};

TEST(AnalyzeDuplicates, AgreesWithTheDirectAnalysisOfLibrariesAsPeopleHaveThem)
{
    for (const LibraryKind kind : KINDS) {
        for (const std::uint64_t seed : {7U, 8U, 9U}) {
            const QList<Song> songs = generateLibrary(
                {.songs = kind == LibraryKind::TenSeconds ? 300U : 1000U, .kind = kind, .seed = seed});
            const Lines groups = linesOf(direct::analyzeDuplicates(songs), songs);
            EXPECT_FALSE(groups.empty()) << static_cast<int>(kind);
            EXPECT_EQ(analyze(songs).groups, groups) << static_cast<int>(kind);
        }
    }
}

/// Songs whose titles all share a word, by artists that are spelt in several ways.
QList<Song> oneWordAndManySpellings(int count)
{
    std::mt19937 random(5);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    QList<Song> songs;
    for (int i = 0; i < count; ++i) {
        // The same few numbers give the same letters.
        QString artist = QString::number(1'000'000'007LL * (1 + below(100)) * 31'337);
        for (int edits = below(4); edits > 0; --edits)
            artist.replace(below(6), below(2), QChar(u'a' + below(26)));
        songs.append(songOf(artist, u"Night of the %1"_s.arg(below(4)), 180.0 + below(12)));
    }
    return songs;
}

TEST(BucketClusterer, FindsTheClustersOfALargeBucket)
{
    QList<QList<Song>> cases{oneWordAndManySpellings(2000)};
    for (const LibraryKind kind : KINDS)
        cases.append(generateLibrary({.songs = 2000, .kind = kind, .seed = 3}));

    for (const QList<Song> &songs : cases) {
        std::vector<std::size_t> everything(static_cast<std::size_t>(songs.size()));
        std::iota(everything.begin(), everything.end(), std::size_t{0});
        const std::vector<ComparableSong> plain(songs.begin(), songs.end());
        const auto clusters = clusterPositions(everything, [&plain](std::size_t seed, std::size_t candidate) {
            return songsMatch(plain[seed], plain[candidate]);
        });
        ASSERT_GT(clusters.size(), 10U);

        const PreparedSongs prepared(songs);
        BucketClusterer clusterer(songs, prepared);
        EXPECT_EQ(clusterer.clustersOf(everything), clusters);
        // Nothing of one bucket is left for the next.
        const std::vector<std::size_t> half(everything.begin(), everything.begin() + 1000);
        EXPECT_EQ(clusterer.clustersOf(half), BucketClusterer(songs, prepared).clustersOf(half));
    }
}

} // namespace
} // namespace sonavo
