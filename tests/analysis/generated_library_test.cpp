#include "analysis/analyze_duplicates.h"
#include "analysis/bucket_clusterer.h"
#include "analysis/clustering.h"
#include "analysis/comparable_song.h"
#include "analysis/direct_analysis.h"
#include "analysis/generators.h"
#include "bench/library_generator.h"

#include <QCoroTask>

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace sonavo {
namespace {

const QList<Color> COLORS = {{0, 0, 0, 0}, {0, 0, 0, 1}, {0, 0, 0, 2}};

class NoPauses final : public Pauses
{
public:
    [[nodiscard]] QCoro::Task<> wait(std::chrono::milliseconds) override { co_return; }
};

QList<DuplicateGroup> analyze(const QList<Song> &songs)
{
    QList<DuplicateGroup> groups;
    const auto run =
        analyzeDuplicates(songs, COLORS, std::make_shared<NoPauses>(), [](const AnalysisProgress &) {
        }).then([&groups](const QList<DuplicateGroup> &made) { groups = made; });
    EXPECT_TRUE(run.isReady());
    return groups;
}

std::vector<std::string> linesOf(const QList<DuplicateGroup> &groups, const QList<Song> &songs)
{
    std::vector<std::string> lines;
    for (const DuplicateGroup &group : groups)
        lines.push_back(placesOf({group.original}, songs) + ": " + placesOf(group.duplicates, songs) + ", #" +
                        std::to_string(static_cast<int>(group.color.alpha)));
    return lines;
}

class GeneratedLibrary : public testing::TestWithParam<NameStyle>
{};

TEST_P(GeneratedLibrary, HasTheGroupsThatTheDirectAnalysisFinds)
{
    const struct
    {
        LibraryKind kind;
        std::size_t songs;
    } cases[] = {{LibraryKind::Realistic, 1000},
                 {LibraryKind::NumberedTracks, 1000},
                 {LibraryKind::OneArtist, 1000},
                 {LibraryKind::TenSeconds, 300}};
    for (const auto &[kind, songCount] : cases) {
        const QList<Song> songs =
            generateLibrary({.songs = songCount, .kind = kind, .style = GetParam(), .seed = 7});
        const std::vector<std::string> groups = linesOf(direct::analyzeDuplicates(songs, COLORS), songs);
        EXPECT_FALSE(groups.empty()) << static_cast<int>(kind);
        EXPECT_EQ(linesOf(analyze(songs), songs), groups) << static_cast<int>(kind);
    }
}

/// Songs whose titles all share a word, by artists that are spelt in several ways.
QList<Song> oneWordAndManySpellings(int count)
{
    std::mt19937 random(5);
    const auto below = [&random](std::size_t limit) { return static_cast<qsizetype>(random() % limit); };
    const auto letter = [&below] { return QChar(static_cast<char16_t>(u'a' + below(26))); };
    QStringList artists;
    for (int i = 0; i < count / 20; ++i) {
        artists.append(QString());
        for (qsizetype length = 6 + below(10); length > 0; --length)
            artists.back().append(letter());
    }
    QList<Song> songs;
    for (int i = 0; i < count; ++i) {
        QString artist = artists[below(static_cast<std::size_t>(artists.size()))];
        for (qsizetype edits = below(4); edits > 0; --edits) {
            if (below(2) == 0)
                artist.remove(below(static_cast<std::size_t>(artist.size())), 1);
            else
                artist.insert(below(static_cast<std::size_t>(artist.size())), letter());
        }
        const QString title = QStringLiteral("Night of the %1").arg(below(4));
        songs.append(songOf(artist, title, 180.0 + static_cast<double>(below(12)), QString::number(i)));
    }
    return songs;
}

TEST(BucketClusterer, FindsTheClustersOfALargeBucket)
{
    QList<QList<Song>> cases{oneWordAndManySpellings(2000)};
    for (const LibraryKind kind : {LibraryKind::Realistic, LibraryKind::NumberedTracks,
                                   LibraryKind::OneArtist, LibraryKind::TenSeconds})
        cases.append(generateLibrary({.songs = 2000, .kind = kind, .seed = 3}));

    for (const QList<Song> &songs : cases) {
        std::vector<std::size_t> everything(static_cast<std::size_t>(songs.size()));
        std::iota(everything.begin(), everything.end(), std::size_t{0});
        const std::vector<ComparableSong> plain(songs.begin(), songs.end());
        const auto clusters = clusterPositions(everything, [&plain](std::size_t seed, std::size_t candidate) {
            return songsMatch(plain[seed], plain[candidate]);
        });
        ASSERT_FALSE(clusters.empty());

        const PreparedSongs prepared(songs);
        BucketClusterer clusterer(songs, prepared);
        EXPECT_EQ(clusterer.clustersOf(everything), clusters);
        // Nothing of one bucket is left for the next.
        const std::vector<std::size_t> half(everything.begin(), everything.begin() + 1000);
        EXPECT_EQ(clusterer.clustersOf(half), BucketClusterer(songs, prepared).clustersOf(half));
    }
}

INSTANTIATE_TEST_SUITE_P(OfEveryStyle, GeneratedLibrary,
                         testing::Values(NameStyle::Mixed, NameStyle::ArtistTitle,
                                         NameStyle::NumberHyphenTitle, NameStyle::NumberTitle,
                                         NameStyle::ArtistAlbumNumberTitle, NameStyle::Underscores,
                                         NameStyle::UpperCase, NameStyle::Numbered, NameStyle::Copy,
                                         NameStyle::Remastered));

} // namespace
} // namespace sonavo
