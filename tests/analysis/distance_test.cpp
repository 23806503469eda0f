#include "analysis/direct_analysis.h"
#include "analysis/distance.h"
#include "analysis/matching.h"

#include <QString>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace sonavo {
namespace {

rc::Gen<std::string> normalizedText(int longest)
{
    // Few characters, so that texts are alike.
    return rc::gen::mapcat(rc::gen::inRange(0, longest + 1), [](int length) {
        return rc::gen::container<std::string>(static_cast<std::size_t>(length),
                                               rc::gen::elementOf(std::string("abz09 ")));
    });
}

/// Two texts that have long pieces in common; many are longer than the 64 characters of one block.
rc::Gen<std::pair<std::string, std::string>> similarTexts()
{
    return rc::gen::exec([] {
        const std::string common = *normalizedText(200);
        const std::size_t middle = common.size() / 2;
        return std::pair(*normalizedText(5) + common + *normalizedText(9),
                         *normalizedText(5) + common.substr(0, middle) + *normalizedText(5) +
                             common.substr(middle) + *normalizedText(9));
    });
}

RC_GTEST_PROP(LevenshteinDistance, IsThatOfTheFullTableUpToItsLimit, ())
{
    const auto [a, b] =
        *rc::gen::oneOf(similarTexts(), rc::gen::pair(normalizedText(300), normalizedText(300)));
    const auto distance = static_cast<std::size_t>(
        direct::levenshteinDistance(QString::fromStdString(a), QString::fromStdString(b)));
    RC_ASSERT(levenshteinDistance(a, b) == distance);
    RC_ASSERT(levenshteinDistance(b, a, distance) == distance);
    for (const std::size_t limit :
         {std::size_t{0}, distance / 2, distance - std::min<std::size_t>(distance, 1)})
        RC_ASSERT(distance == limit || levenshteinDistance(a, b, limit) > limit);
    RC_ASSERT(mayBeWithin(distance, a.size(), b.size(), characterBag(a), characterBag(b)));
}

TEST(LargestDistance, IsTheLastOneThatIsSimilarEnough)
{
    for (const double least : {MATCH_TITLE_SIMILARITY, MATCH_ARTIST_SIMILARITY}) {
        for (std::size_t length = 1; length <= 600; ++length) {
            const auto similarityAt = [length](std::size_t distance) {
                return calculateSimilarity(std::string(length, 'a'), std::string(length - distance, 'a'));
            };
            EXPECT_GE(similarityAt(largestDistance(length, least)), least) << length;
            EXPECT_LT(similarityAt(largestDistance(length, least) + 1), least) << length;
        }
    }
}

} // namespace
} // namespace sonavo
