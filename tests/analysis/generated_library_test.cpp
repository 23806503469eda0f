#include "analysis/analyze_duplicates.h"
#include "analysis/direct_analysis.h"
#include "analysis/generators.h"
#include "bench/library_generator.h"

#include <QCoroTask>

#include <gtest/gtest.h>

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

INSTANTIATE_TEST_SUITE_P(OfEveryStyle, GeneratedLibrary,
                         testing::Values(NameStyle::Mixed, NameStyle::ArtistTitle,
                                         NameStyle::NumberHyphenTitle, NameStyle::NumberTitle,
                                         NameStyle::ArtistAlbumNumberTitle, NameStyle::Underscores,
                                         NameStyle::UpperCase, NameStyle::Numbered, NameStyle::Copy,
                                         NameStyle::Remastered));

} // namespace
} // namespace sonavo
