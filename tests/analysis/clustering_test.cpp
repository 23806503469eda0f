#include "analysis/clustering.h"
#include "analysis/direct_analysis.h"
#include "analysis/generators.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

std::vector<std::string> placesOfAll(const QList<QList<Song>> &clusters, const QList<Song> &songs)
{
    std::vector<std::string> lines;
    for (const QList<Song> &cluster : clusters)
        lines.push_back(placesOf(cluster, songs));
    return lines;
}

TEST(ClusterSongs, ComparesWithTheSeedAlone)
{
    const struct
    {
        std::vector<double> durations;
        std::vector<std::string> clusters;
    } cases[] = {
        {{}, {}},
        {{180, 300}, {}},
        {{180, 190, 185}, {"0 2"}},
        {{185, 180, 190}, {"0 1 2"}},
        {{180, 300, 184, 188, 304, 180}, {"0 2 5", "1 4"}},
    };
    for (const auto &[durations, clusters] : cases) {
        QList<Song> songs;
        for (const double duration : durations)
            songs << songOf(u"Queen"_s, u"Love Song"_s, duration);
        EXPECT_EQ(placesOfAll(clusterSongs(songs), songs), clusters);
    }
}

RC_GTEST_PROP(ClusterSongs, AgreesWithTheDirectClustering, ())
{
    const QList<Song> songs = *library(24);
    RC_ASSERT(placesOfAll(clusterSongs(songs), songs) == placesOfAll(direct::clusterSongs(songs), songs));
}

} // namespace
} // namespace sonavo
