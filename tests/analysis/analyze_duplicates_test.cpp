#include "analysis/analyze_duplicates.h"
#include "analysis/direct_analysis.h"
#include "analysis/generators.h"

#include <QCoroTask>
#include <QSet>
#include <QUuid>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <chrono>
#include <coroutine>
#include <memory>
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

/// Colours that the opacity tells apart: 0, 1, 2 and so on.
const QList<Color> COLORS = {{0, 0, 0, 0}, {0, 0, 0, 1}, {0, 0, 0, 2},
                             {0, 0, 0, 3}, {0, 0, 0, 4}, {0, 0, 0, 5}};

/// Each group as the original's place in `songs`, the places of the duplicates, and the colour: "3: 0 1, #5".
Lines linesOf(const QList<DuplicateGroup> &groups, const QList<Song> &songs)
{
    Lines lines;
    for (const DuplicateGroup &group : groups) {
        lines.push_back(placesOf({group.original}, songs) + ": " + placesOf(group.duplicates, songs) + ", #" +
                        std::to_string(static_cast<int>(group.color.alpha)));
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
    const auto run =
        analyzeDuplicates(songs, COLORS, pauses, report).then([&](const QList<DuplicateGroup> &made) {
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

TEST(AnalyzeDuplicates, KeepsTheFirstOfTheLargestFiles)
{
    const std::pair<std::vector<qint64>, std::string> cases[] = {{{4'000'000, 5'200'000}, "1: 0, #0"},
                                                                 {{4'000'000, 4'000'000}, "0: 1, #0"},
                                                                 {{5, 9, 9, 3}, "1: 0 2 3, #0"}};
    for (const auto &[sizes, group] : cases) {
        QList<Song> songs;
        for (const qint64 size : sizes)
            songs << songOf(u"Queen"_s, u"Love"_s, 180.0, {}, size);
        EXPECT_EQ(analyze(songs).groups, Lines{group});
    }
}

TEST(AnalyzeDuplicates, HandsOutTheColoursInTurn)
{
    QList<Song> songs;
    for (int i = 0; i < 14; ++i)
        songs << songOf(u"Queen"_s, u"Song %1"_s.arg(i / 2));
    EXPECT_EQ(analyze(songs).groups, (Lines{"0: 1, #0", "2: 3, #1", "4: 5, #2", "6: 7, #3", "8: 9, #4",
                                            "10: 11, #5", "12: 13, #0"}));
}

TEST(AnalyzeDuplicates, LeavesATitleAtTheFirstClusterWithoutACompatibleArtist)
{
    // The artists of 0 and 1 are alike but share no word. In step 1 they keep 2 and 3 of the same title from
    // becoming a group, so that 4 and 5 come first; step 3 finds 2 and 3, step 4 finds 0 and 1.
    const QList<Song> songs{songOf(u"Sonomirage"_s, u"Same"_s), songOf(u"Sonomirago"_s, u"Same"_s),
                            songOf(u"Queen"_s, u"Same"_s),      songOf(u"Queen"_s, u"(same)"_s),
                            songOf(u"Queen"_s, u"Other"_s),     songOf(u"Queen"_s, u"Other"_s)};
    EXPECT_EQ(analyze(songs).groups, (Lines{"4: 5, #0", "2: 3, #1", "0: 1, #2"}));
}

TEST(AnalyzeDuplicates, LeavesSongsWithAnotherArtistThanTheOriginalToTheLaterSteps)
{
    // 0 is the seed of the title's cluster but 1 its largest file.
    const QList<Song> songs{songOf(u"Sonomirago"_s, u"Same"_s, 180.0, u"a-b.mp3"_s),
                            songOf(u"Sonomirage"_s, u"Same"_s, 180.0, u"c.mp3"_s, 5'000'000),
                            songOf(u"Sonomirage"_s, u"Same"_s, 180.0, u"d.mp3"_s),
                            songOf(u"Sonomirago"_s, u"Same Live"_s, 180.0, u"A_B.mp3"_s)};
    EXPECT_EQ(analyze(songs).groups, (Lines{"1: 2, #0", "0: 3, #1"}));
}

TEST(AnalyzeDuplicates, ComparesOnlySongsThatShareAStepsKey)
{
    // All of these pairs match. Most durations lie on both sides of a whole second, which keeps step 4 away.
    const Song studio = songOf(u"Queen"_s, u"Love"_s, 179.9, u"01 - Love.mp3"_s);
    const std::pair<QList<Song>, Lines> cases[] = {
        {{studio, songOf(u"Queen"_s, u"Love Live"_s, 180.1)}, {}},
        {{studio, songOf(u"Queen"_s, u"(love)"_s, 180.1)}, {"0: 1, #0"}},
        {{studio, songOf(u"Queen"_s, u"Love Live"_s, 180.1, u"[01] love.MP3"_s)}, {"0: 1, #0"}},
        {{songOf(u"!!!"_s, u"Love"_s, 179.9), songOf(u"???"_s, u"Love"_s, 180.1)}, {"0: 1, #0"}},
        {{songOf(u"Sonomirage X"_s, u"Love"_s, 179.9), songOf(u"Sonomirage"_s, u"X Love"_s, 180.1)}, {}},
        {{studio, songOf(u"Queen"_s, u"Love Live"_s, 179.0)}, {"0: 1, #0"}},
        {{songOf(u"Queen"_s, u"Love"_s, -0.6), songOf(u"Queen"_s, u"Love Live"_s, 0.6)}, {"0: 1, #0"}}};
    for (const auto &[songs, groups] : cases) {
        EXPECT_TRUE(direct::songsMatch(songs[0], songs[1]));
        EXPECT_EQ(analyze(songs).groups, groups) << &songs - &cases[0].first;
    }
}

TEST(AnalyzeDuplicates, PlacesASongOnceAndItsPathWithIt)
{
    const Song first = songOf(u"Queen"_s, u"Love"_s, 180.0, u"love.mp3"_s);
    const Song second = songOf(u"Queen"_s, u"Love"_s, 180.0, u"2.mp3"_s);
    const Song sameName = songOf(u"Queen"_s, u"Love Live"_s, 180.0, u"LOVE.mp3"_s);
    EXPECT_EQ(analyze({first, second, sameName}).groups, Lines{"0: 1, #0"});

    Song secondAgain = songOf(u"Queen"_s, u"Love Song"_s, 180.0, u"2.mp3"_s);
    secondAgain.path = second.path;
    const Song likeSecond = songOf(u"Queen"_s, u"Love Song Live"_s, 180.0, u"[2] mp3"_s);
    EXPECT_EQ(analyze({likeSecond, first, second, secondAgain}).groups, Lines{"1: 2, #0"});

    // Step 1 looks at titles alone, and one file read twice is a copy like any other.
    Song oncemore = secondAgain;
    oncemore.id = QUuid::createUuid();
    EXPECT_EQ(analyze({first, second, secondAgain, oncemore}).groups, (Lines{"0: 1, #0", "2: 3, #1"}));
}

TEST(AnalyzeDuplicates, ComparesUnplacedSongsByArtistAndTitleInBatchesOf5000)
{
    const struct
    {
        int placed, before, between, after, batchPauses;
        Lines groups;
    } cases[] = {
        {0, 0, 4998, 0, 0, {"0: 4999, #0"}},
        {0, 0, 4999, 0, 1, {}},
        {2, 0, 4998, 0, 0, {"0: 1, #0", "2: 5001, #1"}},
        {0, 4999, 0, 5001, 2, {}},
        {0, 5000, 4998, 0, 1, {"5000: 9999, #0"}},
    };
    for (const auto &[placed, before, between, after, batchPauses, groups] : cases) {
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
        appendStrangers(after);
        const Outcome outcome = analyze(songs);
        EXPECT_EQ(outcome.groups, groups) << songs.size() << " songs";
        const Lines stepThree(outcome.log.begin() + 6, outcome.log.end() - 3);
        EXPECT_EQ(stepThree, Lines(static_cast<std::size_t>(batchPauses), "paused 10"))
            << songs.size() << " songs";
    }
}

RC_GTEST_PROP(AnalyzeDuplicates, AgreesWithTheDirectAnalysis, ())
{
    const QList<Song> songs = *library(30);
    RC_ASSERT(analyze(songs).groups == linesOf(direct::analyzeDuplicates(songs, COLORS), songs));
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
    EXPECT_EQ(outcome.groups, linesOf(direct::analyzeDuplicates(songs, COLORS), songs));
}

} // namespace
} // namespace sonavo
