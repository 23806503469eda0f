#include "analysis/analyze_duplicates.h"
#include "analysis/direct_analysis.h"
#include "generators/library_generator.h"
#include "generators/random_source.h"
#include "testing/arbitrary_songs.h"

#include <QCoroTask>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

using Lines = std::vector<std::string>;

class LoggedPauses : public Pauses
{
public:
    QCoro::Task<> wait(std::chrono::milliseconds length) override
    {
        log.push_back("paused " + std::to_string(length.count()));
        co_return;
    }

    Lines log;
};

struct Outcome
{
    QList<DuplicateGroup> groups;
    /// Progress and pauses, in order.
    Lines log;
};

Outcome analyze(const QList<Song> &songs, const std::stop_token &stop = {})
{
    QList<DuplicateGroup> groups;
    const auto pauses = std::make_shared<LoggedPauses>();
    const auto report = [log = &pauses->log](const AnalysisProgress &progress) {
        const QString line = QString::number(progress.fraction) + u' ' + progress.message.value_or(u"-"_s);
        log->push_back(line.toStdString());
    };
    const auto here = [](std::function<void()> work) -> QCoro::Task<> {
        work();
        co_return;
    };
    const auto run =
        analyzeDuplicates(songs, pauses, here, stop, report).then([&](const auto &made) { groups = made; });
    EXPECT_TRUE(run.isReady());
    return {groups, pauses->log};
}

/// Ids are fresh for each group.
bool areEqualButForIds(const QList<DuplicateGroup> &a, const QList<DuplicateGroup> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto &left, const auto &right) {
        return left.original == right.original && left.duplicates == right.duplicates &&
               left.color == right.color && left.id != right.id;
    });
}

TEST(AnalyzeDuplicates, ReportsEachStepAndThenPausesEvenWithoutSongs)
{
    const Outcome outcome = analyze({});
    EXPECT_TRUE(outcome.groups.isEmpty());
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
        int placed, before, between, batchPauses, groups;
    } cases[] = {{0, 0, 4998, 0, 1}, {0, 0, 4999, 1, 0}, {2, 0, 4998, 0, 2}, {0, 5000, 4998, 1, 1}};
    for (const auto &[placed, before, between, batchPauses, groups] : cases) {
        QList<Song> songs;
        const auto appendStrangers = [&songs](int count) {
            for (; count > 0; --count)
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
        EXPECT_EQ(outcome.groups.size(), groups) << songs.size() << " songs";
        EXPECT_TRUE(areEqualButForIds(outcome.groups, direct::analyzeDuplicates(songs)));
        EXPECT_EQ(std::count(outcome.log.begin(), outcome.log.end(), "paused 10"), batchPauses);
    }
}

TEST(AnalyzeDuplicates, ComparesSongsThatTheFirstStepComparedWithAnOriginalAlone)
{
    // The first step drops the last two, whose artist has no word of the original's.
    QList<Song> songs;
    for (const QString &artist : {u"montgomery"_s, u"montgomery"_s, u"montgomeri"_s, u"montgomeri"_s})
        songs << songOf(artist, u"Night"_s);
    const Outcome outcome = analyze(songs);
    EXPECT_EQ(outcome.groups.size(), 2);
    EXPECT_TRUE(areEqualButForIds(outcome.groups, direct::analyzeDuplicates(songs)));
}

TEST(AnalyzeDuplicates, ComparesNothingOnceItIsStopped)
{
    std::stop_source stop;
    stop.request_stop();
    const QList<Song> songs(20'000, songOf(u"Queen"_s, u"Love"_s, 90.0));
    const Outcome outcome = analyze(songs, stop.get_token());
    EXPECT_TRUE(outcome.groups.isEmpty());
    EXPECT_EQ(outcome.log.back(), "1 -");
}

RC_GTEST_PROP(AnalyzeDuplicates, AgreesWithTheDirectAnalysis, ())
{
    const QList<Song> songs = *library(30);
    RC_ASSERT(areEqualButForIds(analyze(songs).groups, direct::analyzeDuplicates(songs)));
}

/// Titles that all share a word, by artists that are spelt in several ways, in one large bucket: all play
/// for the same whole second.
QList<Song> oneWordAndManySpellings()
{
    QList<Song> songs;
    for (int i = 0; i < 270; ++i) {
        QString artist = QString::number(1'000'000'007LL * 31'337 * (1 + i % 31));
        artist.chop(i % 5);
        artist.replace(i % 2, i % 3, u'z');
        songs << songOf(artist, u"Night of the %1"_s.arg(i % 4), 180.0 + 0.01 * (i % 11));
    }
    return songs;
}

/// Very many artists of one title that are all a little alike, every second one as many edits from the one
/// before as an artist that matches may be, and in the end some that are not alike at all; all play for the
/// same whole second.
QList<Song> manyArtistsALittleAlike()
{
    RandomSource random(3);
    const auto letter = [&random] { return QChar(u'a' + static_cast<char16_t>(random.below(26))); };
    QList<Song> songs;
    for (int i = 0; i < 540; ++i) {
        const bool isNear = i % 2 == 1;
        QString artist = isNear ? songs.last().artist : u"montgomerywilson"_s;
        for (int edit = isNear ? 4 : i < 500 ? 8 : 80; edit > 0; --edit) {
            const auto at = static_cast<qsizetype>(random.below(16));
            const bool isShift = isNear && edit % 2 == 1 && random.isOneIn(4);
            artist[at] = letter();
            // A shift takes two edits.
            if (isShift && edit > 2) {
                artist.remove(at, 1);
                artist.insert(static_cast<qsizetype>(random.below(16)), letter());
                --edit;
            }
        }
        if (i % 8 > 5)
            artist.append(letter());
        songs << songOf(artist, u"Night"_s, 180.0 + 0.0005 * i);
    }
    return songs;
}

TEST(AnalyzeDuplicates, AgreesWithTheDirectAnalysisOfLibrariesAsUsersHaveThem)
{
    QList<QList<Song>> libraries{oneWordAndManySpellings(), manyArtistsALittleAlike()};
    for (const LibraryKind kind : {LibraryKind::Realistic, LibraryKind::NumberedTracks,
                                   LibraryKind::OneArtist, LibraryKind::TenSeconds})
        libraries << generateLibrary({.songs = 220, .kind = kind, .seed = 7});
    for (const QList<Song> &songs : libraries) {
        const QList<DuplicateGroup> expected = direct::analyzeDuplicates(songs);
        EXPECT_GT(expected.size(), 10);
        EXPECT_TRUE(areEqualButForIds(analyze(songs).groups, expected));
    }
}

} // namespace
} // namespace sonavo
