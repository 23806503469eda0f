#include "analysis/direct_analysis.h"
#include "analysis/find_further.h"
#include "analysis/further_matches.h"
#include "generators/library_generator.h"
#include "generators/random_source.h"
#include "testing/arbitrary_songs.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <numeric>
#include <span>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

QList<DuplicateGroup> further(const QList<Song> &songs)
{
    return findFurther(songs, {}, [](double) {}).value();
}

/// Ids are fresh for each group.
bool areAlike(const QList<DuplicateGroup> &a, const QList<DuplicateGroup> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto &left, const auto &right) {
        return left.original == right.original && left.duplicates == right.duplicates &&
               left.color == right.color && left.id != right.id;
    });
}

RC_GTEST_PROP(FindFurther, AgreesWithTheDirectWay, ())
{
    const QList<Song> songs = *library(30);
    RC_ASSERT(areAlike(further(songs), direct::findFurther(songs)));
}

/// Titles of very many words that are all of the same few, and copies with about as many typing errors as are
/// allowed.
QList<Song> wordyTitles()
{
    constexpr int LENGTH = 300;
    RandomSource random(8);
    QList<Song> songs;
    for (int i = 0; i < 24; ++i) {
        QString title = i % 4 == 0 ? QString() : songs[i / 4 * 4].title;
        while (title.size() < LENGTH)
            title += QStringList{u"night "_s, u"song "_s, u"in "_s, u"rome "_s}[qsizetype(random.below(4))];
        for (std::size_t edits = i % 4 == 0 ? 0 : random.between(24, 40); edits > 0; --edits)
            title[qsizetype(random.below(LENGTH))] = QChar(u'a' + char16_t(random.below(26)));
        songs << songOf(u"Queen"_s, title);
        songs.last().size = i * 7 % 24;
    }
    return songs;
}

TEST(FindFurther, AgreesWithTheDirectWayOnLibrariesAsUsersHaveThem)
{
    // Many of the last are similar to more others than are counted, in windows of playing times that overlap.
    QList<Song> dense;
    for (int i = 0; i < 125; ++i) {
        const QString letters = QString(QChar(u'a' + i * 37 % 125 / 12)) + QChar(u'a' + i * 37 % 125 % 12);
        dense << songOf(u""_s, u"Track %1 of the Best Of"_s.arg(letters), 180.0 + 0.06 * (i * 91 % 125));
        dense.last().size = i * 53 % 125;
    }
    // One title by artists of whom some are similar.
    QList<Song> covers;
    for (int i = 0; i < 60; ++i) {
        QString artist;
        for (int letter = 0; letter < 8; ++letter)
            artist += QChar(u'a' + (i / 4 * (letter + 7) + letter * letter * 5) % 26);
        artist[i % 4 * 2] = u'-';
        covers << songOf(artist, i % 4 == 0 ? u"Night Song (Live)"_s : u"Night Song"_s, 180.0 + 0.1 * i);
    }
    // Artists that are all alike.
    QList<Song> bands;
    for (int i = 0; i < 60; ++i) {
        QString artist = u"quartetofnames"_s;
        artist[i % 7] = QChar(u'a' + i / 7);
        artist[7 + i % 5] = QChar(u'a' + i % 11);
        bands << songOf(artist, u"Night %1 Song %2"_s.arg(i % 12).arg(i % 4), 180.0 + 0.1 * (i * 37 % 60));
    }
    QList<QList<Song>> libraries{dense, covers, bands, wordyTitles()};
    for (const LibraryKind kind : {LibraryKind::Realistic, LibraryKind::NumberedTracks,
                                   LibraryKind::OneArtist, LibraryKind::TenSeconds})
        libraries << generateLibrary({.songs = 120, .kind = kind, .seed = 7});
    for (const QList<Song> &songs : libraries) {
        const QList<DuplicateGroup> expected = direct::findFurther(songs);
        EXPECT_GE(expected.size(), 2);
        EXPECT_TRUE(areAlike(further(songs), expected));
    }
}

/// Songs of a few hundred recordings whose titles contain those of others or lack their blanks, by similar
/// artists, some of them with a letter of another script.
QList<Song> medleys()
{
    QList<Song> songs = generateLibrary({.songs = 600, .kind = LibraryKind::OneArtist, .seed = 3});
    for (qsizetype i = 0; i < songs.size(); ++i) {
        songs[i].duration = 180.0 + double(i % 7);
        songs[i].artist = i % 9 == 0 ? u"Sonomirego"_s : i % 9 < 3 ? u"Sonomirаge"_s : u"Sonomirage"_s;
        if (i % 3 == 0)
            songs[i].title += u' ' + songs[(i * 7 + 1) % songs.size()].title;
        if (i % 5 < 2)
            songs[i].title += i % 2 == 0 ? u" 12"_s : u" 7 12 40"_s;
        if (i % 11 == 1)
            songs[i].title = QString(songs[i - 1].title).remove(u' ');
    }
    return songs;
}

TEST(FurtherArtists, ListsEveryArtistThatIsSimilar)
{
    QList<Song> library;
    for (int i = 0; i < 600; ++i) {
        QString artist;
        for (int letter = 0; letter < 10; ++letter)
            artist += QChar(char16_t(u'a' + (i / 12 * (letter + 7) + letter * letter * 5) % 26));
        for (int edit = 0; edit < i % 4; ++edit)
            artist[(i * 3 + edit * (2 + i % 3)) % 10] = u'-';
        library << songOf(artist, u"Night Song"_s);
    }
    const FurtherSongs songs(library, {});
    const FurtherArtists artists(songs, {});
    for (FurtherArtists::Artist artist = 0; artist < artists.size(); ++artist) {
        std::vector<FurtherArtists::Artist> expected;
        for (FurtherArtists::Artist other = 0; other < artists.size(); ++other) {
            // One title for all: the artists decide.
            if (other != artist &&
                songsMatchFurther(songs[artists.songsOf(artist)[0]], songs[artists.songsOf(other)[0]]))
                expected.push_back(other);
        }
        const auto similar = artists.similarTo(artist);
        ASSERT_TRUE(similar);
        EXPECT_THAT(*similar, testing::ElementsAreArray(expected));
    }
}

/// Songs of one title whose artists resemble one another, or not, through a third that has few songs itself.
QList<Song> artistsBetween()
{
    QList<Song> songs = medleys();
    for (qsizetype i = 0; i < songs.size(); ++i) {
        const QStringView artists[] = {u"aaaaaaabbb", u"aaaabbbbbb", u"aaaaaaaaaa"};
        songs[i].artist = artists[std::min<qsizetype>(i % 50, 2)].toString();
        if (i % 50 == 1)
            songs[i].title = songs[i - 1].title;
    }
    return songs;
}

/// Artists of the same letters in another order, some of them a few edits from the one before.
QList<Song> shuffledArtists()
{
    RandomSource random(6);
    QList<Song> songs;
    QString artist = u"abcdefghijklmnopqrstuvwxyz01abcdefghijklmnopqrstuvwxyz0123"_s;
    for (int i = 0; i < 600; ++i) {
        for (int swaps = i % 3 == 0 ? 200 : 4; swaps > 0; --swaps)
            std::swap(artist[static_cast<qsizetype>(random.below(58))],
                      artist[static_cast<qsizetype>(random.below(58))]);
        songs << songOf(artist, u"Night"_s, 180.0 + 0.01 * (i * 37 % 600));
    }
    return songs;
}

/// Titles of few lengths that are all a little like this one, some with a track number or a tail.
QList<Song> titlesLike(const QString &model, int count)
{
    RandomSource random(4);
    QList<Song> songs;
    for (int i = 0; i < count; ++i) {
        QString title = model;
        for (std::size_t edits = random.below(9); edits > 0; --edits)
            title[static_cast<qsizetype>(6 + random.below(40))] =
                QChar(u'a' + static_cast<char16_t>(random.below(26)));
        if (i % 10 == 6)
            title.truncate(30);
        songs << songOf(i % 90 < 80 ? u"Queen"_s : u"Queens"_s, title, 180.0 + 0.01 * (i * 37 % count));
        if (i % 10 == 3)
            songs.last().title.prepend(u"0%1 - "_s.arg(i % 7));
        if (i % 10 > 7)
            songs.last().title += i % 3 == 0 ? u" (Live)"_s : u" (Live in the Castle)"_s;
    }
    return songs;
}

using Positions = std::vector<FurtherSongs::Position>;

/// Of each song, sorted.
std::vector<Positions> matchesOfAll(const FurtherIndex &index, FurtherMatches::Removed removed)
{
    Positions songs(index.songs().size());
    std::iota(songs.begin(), songs.end(), 0U);
    std::vector<Positions> matches(songs.size());
    FurtherMatches(index).forEachMatches(
        songs, SIZE_MAX, removed, [&](std::size_t song, std::span<const FurtherSongs::Position> found) {
            matches[song].assign(found.begin(), found.end());
            std::sort(matches[song].begin(), matches[song].end());
        });
    return matches;
}

TEST(FurtherMatches, FindsEverySongThatMatches)
{
    // Large enough that the indexes are asked for most songs.
    QList<Song> alike = medleys();
    for (qsizetype i = 0; i < alike.size(); ++i) {
        alike[i].artist = u"quartetofnames"_s;
        alike[i].artist[i % 7] = QChar(char16_t(u'a' + i / 7 % 26));
        alike[i].artist[7 + i % 5] = QChar(char16_t(u'a' + i % 11));
    }
    const QList<Song> one = generateLibrary({.songs = 600, .kind = LibraryKind::NumberedTracks, .seed = 5});
    const QList<Song> likeShort = titlesLike(u"night of the montgomery wilson quartet in rome"_s, 900);
    // Only some of their grams are keys.
    const QList<Song> likeLong =
        titlesLike(u"night of the montgomery wilson quartets in rome with a medley of everything that they "
                   "have ever played, sung and recorded there"_s,
                   400);
    for (const QList<Song> &library :
         {medleys(), alike, one, artistsBetween(), shuffledArtists(), likeShort, likeLong}) {
        const FurtherSongs songs(library, {});
        FurtherIndex index(songs, {});
        std::vector<Positions> expected(songs.size());
        std::vector<Positions> left(songs.size());
        for (FurtherSongs::Position song = 0; song < songs.size(); ++song) {
            for (FurtherSongs::Position other = 0; other < songs.size(); ++other) {
                if (other == song || !songsMatchFurther(songs[song], songs[other]))
                    continue;
                expected[song].push_back(other);
                if (other % 4 != 0)
                    left[song].push_back(other);
            }
        }
        using Removed = FurtherMatches::Removed;
        EXPECT_EQ(matchesOfAll(index, Removed::Included), expected);
        index.placeTexts({});
        EXPECT_EQ(matchesOfAll(index, Removed::Included), expected);
        FurtherMatches(index).forEachCheapMatches(
            index.artists().songs(), SIZE_MAX,
            [&](std::size_t i, std::span<const FurtherSongs::Position> found) {
                EXPECT_THAT(found, testing::UnorderedElementsAreArray(expected[index.artists().songs()[i]]));
            });
        for (FurtherSongs::Position song = 0; song < songs.size(); song += 4)
            index.remove(song);
        EXPECT_EQ(matchesOfAll(index, Removed::Included), expected);
        EXPECT_EQ(matchesOfAll(index, Removed::LeftOut), left);
    }
}

TEST(FindFurther, TellsSameFromDifferentInEveryScript)
{
    const struct
    {
        QString artistA, titleA, artistB, titleB;
        bool isSame;
    } cases[] = {
        {u"Кино"_s, u"Группа крови"_s, u"КИНО"_s, u"Группа крови (Live)"_s, true},
        {u"Кино"_s, u"Группа крови"_s, u"Кино"_s, u"Звезда по имени"_s, false},
        {u"椎名林檎"_s, u"夜"_s, u"椎名林檎"_s, u"夜 (live)"_s, true},
        {u"椎名林檎"_s, u"夜"_s, u"椎名林檎"_s, u"朝"_s, false},
        {u""_s, u"夜"_s, u""_s, u"夜"_s, true},
        {u"Beyoncé"_s, u"Déjà Vu"_s, u"Beyonce"_s, u"Deja Vu"_s, true},
        {u"Queen"_s, u"Go"_s, u"Queen"_s, u"Go"_s, false},
        {u"Queen"_s, u"He Said"_s, u"Queen"_s, u"The Said Thing"_s, false},
        // "The" before an artist and a track number that only one title has do not count.
        {u"The Enchanted"_s, u"Portal"_s, u"Enchanted"_s, u"Portal (Demo)"_s, true},
        {u"Enchanted, The"_s, u"Portal"_s, u"The Enchanted"_s, u"Portal"_s, true},
        {u"Queen"_s, u"003-Night Song"_s, u"Queen"_s, u"Night Song - Best of"_s, true},
        {u"Queen"_s, u"003-Night"_s, u"Queen"_s, u"014-Night"_s, false},
        // Nor does a tail that only one title has; numbers always count.
        {u"Queen"_s, u"Nihgt Songs of Love [Live]"_s, u"Queen"_s, u"Night Songs of Love"_s, true},
        {u"Queen"_s, u"Nihgt Songs of Love [Live]"_s, u"Queen"_s, u"Night Songs of Love - Demo"_s, false},
        {u"Queen"_s, u"Night Songs, Part 1"_s, u"Queen"_s, u"Night Songs, Part 2"_s, false},
        {u"Queen"_s, u"Night Songs, Part 01"_s, u"Queen"_s, u"Night Song Part 1 (2009)"_s, true},
        // Nor do blanks, nor guests unless both artists have some.
        {u"Queen"_s, u"Night (feat. Vaibin)"_s, u"Queen ft. Vaibin"_s, u"Night"_s, true},
        {u"Queen feat. Sonomirage"_s, u"Night"_s, u"Queen feat. Vaibin"_s, u"Night"_s, false},
        {u"Ft. Minor"_s, u"Night"_s, u"Minor"_s, u"Night"_s, false},
        {u"Queen of Hearts"_s, u"01 NightSong"_s, u"Queen of Hearts"_s, u"Night Song (Live)"_s, true},
        {u"Queen"_s, u"M.I.A."_s, u"Queen"_s, u"M.I.A. - Best of"_s, true},
        // One of ten characters may differ; each of these is one, though not one unit of UTF-16.
        {u""_s, u"𐌰𐌱𐌲𐌳𐌴𐌵 live"_s, u""_s, u"𐌰𐌱𐌲𐌳𐌴𐌶 live"_s, true},
        {u""_s, u"𐌰𐌱𐌲𐌳𐌴𐌵 live"_s, u""_s, u"𐌰𐌱𐌲𐌳𐌷𐌶 live"_s, false},
    };
    for (const auto &[artistA, titleA, artistB, titleB, isSame] : cases) {
        const QList<Song> songs{songOf(artistA, titleA, 180.0), songOf(artistB, titleB, 185.0)};
        EXPECT_EQ(further(songs).size(), isSame ? 1 : 0) << (titleA + u" / "_s + titleB).toStdString();
    }
}

/// Songs of the same length, each similar only to its neighbours.
QList<Song> chain()
{
    QList<Song> songs;
    for (const char16_t *title : {u"Night Song aaa", u"Night Song aab", u"Night Song abb", u"Night Song bbb"})
        songs << songOf(u"Q"_s, QString::fromUtf16(title));
    return songs;
}

QList<int> positionsOf(const QList<Song> &songs, const DuplicateGroup &group)
{
    QList<int> positions;
    for (const Song &song : membersOf(group))
        positions << int(songs.indexOf(song));
    return positions;
}

TEST(FindFurther, DoesNotChainAndKeepsOnlyWhatMatchesTheLargestFile)
{
    QList<Song> songs = chain();
    ASSERT_EQ(further(songs).size(), 1);
    EXPECT_EQ(positionsOf(songs, further(songs)[0]), (QList{1, 0, 2}));

    // The first song does not match the largest of its star, and nothing else is left to match it.
    songs[2].size *= 2;
    EXPECT_EQ(positionsOf(songs, further(songs)[0]), (QList{2, 1}));
    EXPECT_EQ(further(songs).size(), 1);
}

TEST(FindFurther, NeverTakesAFileForItsOwnCopy)
{
    QList<Song> songs{songOf(u"Queen"_s, u"Love"_s), songOf(u"Queen"_s, u"Love"_s)};
    songs[1].path = songs[0].path;
    EXPECT_TRUE(further(songs).isEmpty());
}

TEST(FindFurther, ReportsGrowingProgressAndStopsWhenAsked)
{
    const QList<Song> songs = generateLibrary({.songs = 5000});
    std::vector<double> reported;
    ASSERT_TRUE(findFurther(songs, {}, [&](double fraction) { reported.push_back(fraction); }));
    EXPECT_TRUE(std::is_sorted(reported.begin(), reported.end()));
    EXPECT_EQ(reported.front(), 0.0);
    EXPECT_EQ(reported.back(), 1.0);

    // There are few reports where the other threads take most songs.
    for (const double when : {reported[0], reported[1], reported[reported.size() - 2]}) {
        std::stop_source stop;
        const auto stopThen = [&](double fraction) {
            if (fraction >= when)
                stop.request_stop();
        };
        EXPECT_FALSE(findFurther(songs, stop.get_token(), stopThen)) << when;
    }
}

TEST(FoundOnlyFurther, LeavesOutWhatThePassesCallADuplicateOrGroupWithItsOriginal)
{
    const QList<Song> s = chain();
    const DuplicateGroup further{QUuid::createUuid(), s[0], {s[1], s[2]}, 0};
    EXPECT_EQ(foundOnlyFurther({further}, {}), (QSet{s[1].id, s[2].id}));
    EXPECT_EQ(foundOnlyFurther({further}, {{QUuid::createUuid(), s[1], {s[0]}, 0}}), QSet{s[2].id});
    EXPECT_EQ(foundOnlyFurther({further}, {{QUuid::createUuid(), s[3], {s[1]}, 0}}), QSet{s[2].id});
    EXPECT_EQ(foundOnlyFurther({further}, {{QUuid::createUuid(), s[1], {s[3]}, 0}}),
              (QSet{s[1].id, s[2].id}));
}

} // namespace
} // namespace sonavo
