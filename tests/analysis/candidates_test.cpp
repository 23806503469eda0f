#include "analysis/artist_grams.h"
#include "analysis/full_texts.h"
#include "analysis/matching.h"
#include "generators/random_source.h"
#include "testing/arbitrary_songs.h"

#include <gmock/gmock.h>

#include <vector>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

/// Texts of few lengths, every third a few edits from the one before.
QString nextText(const QString &before, qsizetype length, RandomSource &random)
{
    const auto letter = [&random] { return QChar(u'a' + static_cast<char16_t>(random.below(26))); };
    QString text = before;
    if (text.isEmpty() || !random.isOneIn(3)) {
        text.clear();
        while (text.size() < length)
            text += letter();
        return text;
    }
    for (std::size_t edits = random.below(5); edits > 0; --edits)
        text[static_cast<qsizetype>(random.below(static_cast<std::size_t>(text.size())))] = letter();
    return random.isOneIn(4) ? letter() + text.chopped(1) : text;
}

/// Large enough that lists of rare parts are worthwhile.
QList<Song> manyTexts(bool areArtists)
{
    RandomSource random(9);
    QList<Song> songs;
    QString text;
    for (int i = 0; i < 2500; ++i) {
        text = nextText(text, areArtists ? 12 : 40 + i % 2, random);
        songs << (areArtists ? songOf(text, u"Night"_s) : songOf(u"Queen"_s, text));
        if (i % 5 == 0)
            songs.last().title = songs.last().title.first(songs.last().title.size() / 2);
        if (i % 7 == 0)
            songs.last().name = songs.first().name;
    }
    // Too long to be looked up.
    for (int i = 0; i < 5; ++i)
        songs << songOf(QString(60, u'x'), QString(90, u'y') + QChar(u'a' + i));
    return songs;
}

template <typename Index, typename Matches>
void expectThatNoneIsMissed(const QList<Song> &songs, Matches matches)
{
    const PreparedSongs prepared(songs);
    std::vector<PreparedSong> bucket;
    for (SongIndex i = 0; i < prepared.size(); ++i)
        bucket.push_back(prepared[i]);
    Index index(prepared);
    index.build(bucket);
    // Titles cut in half are looked for as well.
    constexpr BucketPosition STEP = 24;
    constexpr BucketPosition BEGIN = 100;
    std::vector<std::vector<BucketPosition>> found((bucket.size() + STEP - 1) / STEP);
    std::vector<SongSearch> searches;
    for (std::size_t i = 0; i < found.size(); ++i)
        searches.push_back({&bucket[bucket.size() - 1 - i * STEP], BEGIN,
                            static_cast<BucketPosition>(bucket.size()), &found[i]});
    index.findMatching(searches);
    std::size_t others = 0;
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (BucketPosition other = BEGIN; other < bucket.size(); ++other) {
            if (!matches(prepared, *searches[i].song, bucket[other]))
                continue;
            EXPECT_THAT(found[i], testing::Contains(other)) << i;
            others += other != searches[i].song->index ? 1U : 0U;
        }
    }
    EXPECT_GT(others, 25U);
}

TEST(ArtistGrams, FindEverySongOfASimilarArtist)
{
    expectThatNoneIsMissed<ArtistGrams>(manyTexts(true), artistsMatch);
}

TEST(FullTexts, FindEverySongWhoseTextsMatch)
{
    expectThatNoneIsMissed<FullTexts>(manyTexts(false), textsMatch);
}

} // namespace
} // namespace sonavo
