#include "analysis/matching.h"
#include "testing/arbitrary_songs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

/// Whether two songs match, either way round.
bool match(const Song &a, const Song &b)
{
    const PreparedSongs songs({a, b});
    const bool isMatch = songsMatch(songs, songs[0], songs[1]);
    EXPECT_EQ(songsMatch(songs, songs[1], songs[0]), isMatch);
    return isMatch;
}

TEST(SongsMatch, AllowsFiveSecondsButNotMore)
{
    const Song song = songOf(u"Queen"_s, u"Love"_s, 180.0);
    EXPECT_TRUE(match(song, songOf(u"Queen"_s, u"Love"_s, 185.0)));
    EXPECT_FALSE(match(song, songOf(u"Queen"_s, u"Love"_s, std::nextafter(185.0, 200.0))));
}

TEST(SongsMatch, AsksForSimilarArtistsAndTitlesThatShareAWord)
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
        EXPECT_EQ(match(songOf(artistA, titleA), songOf(artistB, titleB)), isMatch)
            << (artistA + u": "_s + titleA + u" / "_s + artistB + u": "_s + titleB).toStdString();
    }
}

} // namespace
} // namespace sonavo
