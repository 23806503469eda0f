#include "analysis/bounded_distance.h"
#include "analysis/direct_analysis.h"
#include "analysis/similarity.h"
#include "testing/arbitrary_songs.h"

#include <QString>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

TEST(LevenshteinDistance, CountsEditsOfWhatAReaderSeesAsOneCharacter)
{
    const struct
    {
        QString a, b;
        std::size_t distance;
    } cases[] = {
        {u""_s, u"abc"_s, 3},
        {u"ab"_s, u"ba"_s, 2},
        {u"kitten"_s, u"sitting"_s, 3},
        {u"Cafe\u0301"_s, u"Caf\u00e9"_s, 0},
        {u"Cafe\u0301"_s, u"Cafe"_s, 1},
        {u"a\u0323\u0307"_s, u"a\u0307\u0323"_s, 0},
        {u"\u1112\u1161\u11ab"_s, u"\ud55c"_s, 0},
        {u"\ufb01"_s, u"fi"_s, 2},
        {u"\r\n"_s, u""_s, 1},
        {u"\U0001F1EB\U0001F1F7x"_s, u"x"_s, 1},
    };
    for (const auto &[a, b, distance] : cases)
        EXPECT_EQ(levenshteinDistance(a, b), distance) << a.toStdString() << " / " << b.toStdString();
}

rc::Gen<std::string> normalizedText(int longest)
{
    // Few characters, so that texts are alike.
    return rc::gen::mapcat(rc::gen::inRange(0, longest + 1), [](int length) {
        return rc::gen::container<std::string>(static_cast<std::size_t>(length),
                                               rc::gen::elementOf(std::string("abz09 ")));
    });
}

/// Two texts that have a long piece in common, on both sides of the 64 characters of one block.
rc::Gen<std::pair<std::string, std::string>> similarTexts()
{
    return rc::gen::map(rc::gen::tuple(normalizedText(5), normalizedText(5), normalizedText(200),
                                       normalizedText(5), normalizedText(9), normalizedText(9)),
                        [](const auto &parts) {
                            const auto &[startA, startB, common, inner, endA, endB] = parts;
                            const std::size_t middle = common.size() / 2;
                            return std::pair(startA + common + endA, startB + common.substr(0, middle) +
                                                                         inner + common.substr(middle) +
                                                                         endB);
                        });
}

void expectAgreement(const std::string &a, const std::string &b)
{
    const QString wideA = QString::fromStdString(a);
    const QString wideB = QString::fromStdString(b);
    const std::size_t distance = levenshteinDistance(a, b);
    RC_ASSERT(distance == static_cast<std::size_t>(direct::levenshteinDistance(wideA, wideB)));
    RC_ASSERT(distance == levenshteinDistance(wideA, wideB));
    for (const std::size_t limit : {std::size_t{0}, distance - std::min<std::size_t>(distance, 1), distance,
                                    distance + 1, a.size() + b.size()}) {
        const std::size_t bounded = boundedDistance(a, b, limit);
        if (distance <= limit)
            RC_ASSERT(bounded == distance);
        else
            RC_ASSERT(bounded > limit);
    }
    RC_ASSERT(bagDifference(characterBag(a), characterBag(b)) <= 2 * distance);
}

RC_GTEST_PROP(BoundedDistance, IsTheEditDistanceWithinItsLimit, ())
{
    const auto unlikeTexts = rc::gen::pair(normalizedText(300), normalizedText(300));
    const auto [a, b] = *rc::gen::oneOf(similarTexts(), unlikeTexts);
    expectAgreement(a, b);
    expectAgreement(b, a);
}

TEST(LargestDistance, IsTheLastThatTheDefinitionCallsSimilar)
{
    for (const double threshold : {MATCH_TITLE_SIMILARITY, MATCH_ARTIST_SIMILARITY}) {
        for (std::size_t length = 1; length <= 600; ++length) {
            const std::size_t distance = largestDistance(length, threshold);
            const auto similarityAt = [length](std::size_t edits) {
                return 1.0 - static_cast<double>(edits) / static_cast<double>(length);
            };
            EXPECT_GE(similarityAt(distance), threshold) << length;
            EXPECT_LT(similarityAt(distance + 1), threshold) << length;
        }
    }
}

TEST(SongsMatch, AllowsFiveSecondsButNotMore)
{
    const Song song = songOf(u"Queen"_s, u"Love"_s, 180.0);
    for (const double duration : {175.0, 185.0})
        EXPECT_TRUE(songsMatch(song, songOf(u"Queen"_s, u"Love"_s, duration))) << duration;
    for (const double duration : {174.99, std::nextafter(185.0, 200.0)})
        EXPECT_FALSE(songsMatch(song, songOf(u"Queen"_s, u"Love"_s, duration))) << duration;
}

TEST(SongsMatch, AsksForAlikeArtistsAndTitlesThatShareAWord)
{
    const struct
    {
        QString artistA, titleA, artistB, titleB;
        bool isMatch;
    } cases[] = {
        {u"Queen"_s, u"LOVE"_s, u"queen"_s, u"Love (Live)"_s, true},
        {u"Queen"_s, u"Love-Song"_s, u"Queen"_s, u"Love Song for a Winter Night"_s, false},
        {u"Queen"_s, u"Love"_s, u"Queen"_s, u"Lovely"_s, false},
        {u"Queen"_s, u"Run"_s, u"Queen"_s, u"Run"_s, true},
        {u"Queen"_s, u"Go"_s, u"Queen"_s, u"Go"_s, false},
        {u"Queen"_s, u""_s, u"Queen"_s, u""_s, false},
        {u""_s, u""_s, u""_s, u""_s, false},
        {u"Кино"_s, u"Песня"_s, u"Кино"_s, u"Песня"_s, false},
        // Two, then three of the twenty characters of artist and title differ.
        {u"Sonomirage"_s, u"Love Song"_s, u"Sonomirage"_s, u"Love Sunk"_s, true},
        {u"Sonomirage"_s, u"Love Song"_s, u"Sonomirage"_s, u"Love Tank"_s, false},
        // Three, then four of the ten letters of the artist differ.
        {u"Sonomirage"_s, u"Love"_s, u"Sonomirxyz"_s, u"Love"_s, true},
        {u"Sonomirage"_s, u"Love"_s, u"Sonomiwxyz"_s, u"Love"_s, false},
        {u""_s, u"Love"_s, u""_s, u"Love"_s, true},
        {u"Vaibin"_s, u"Love"_s, u""_s, u"Love"_s, false},
        {u"Кино"_s, u"Love"_s, u"椎名林檎"_s, u"Love"_s, true},
    };
    for (const auto &[artistA, titleA, artistB, titleB, isMatch] : cases) {
        EXPECT_EQ(songsMatch(songOf(artistA, titleA), songOf(artistB, titleB)), isMatch)
            << (artistA + u": "_s + titleA + u" / "_s + artistB + u": "_s + titleB).toStdString();
    }
}

RC_GTEST_PROP(SongsMatch, AndArtistsCompatibleAgreeWithTheirConditionsEitherWayRound, ())
{
    const QList<Song> songs = *library(10);
    for (const Song &a : songs) {
        for (const Song &b : songs) {
            RC_ASSERT(songsMatch(a, b) == direct::songsMatch(a, b));
            RC_ASSERT(songsMatch(a, b) == songsMatch(b, a));
            RC_ASSERT(artistsCompatible(a, artistWordsOf(b), b) == direct::artistsCompatible(a, b));
        }
    }
}

} // namespace
} // namespace sonavo
