#include "analysis/direct_analysis.h"
#include "analysis/distance.h"
#include "analysis/matching.h"

#include <QString>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

namespace sonavo {
namespace {

RC_GTEST_PROP(LevenshteinDistance, IsThatOfTheFullTableUpToItsLimit, ())
{
    // Few characters, so that texts are alike; many are longer than the 64 of one block.
    const auto text =
        rc::gen::scale(2.0, rc::gen::container<std::string>(rc::gen::element('a', 'b', '0', ' ')));
    const std::string a = *text;
    const std::string b = *rc::gen::element(*text, a + *text, *text + a);
    const auto distance = static_cast<std::size_t>(
        direct::levenshteinDistance(QString::fromStdString(a), QString::fromStdString(b)));
    RC_ASSERT(levenshteinDistance(a, b) == distance);
    RC_ASSERT(levenshteinDistance(b, a, distance) == distance);
    for (const std::size_t limit :
         {std::size_t{0}, distance / 2, distance - std::min<std::size_t>(distance, 1)})
        RC_ASSERT(distance == limit || levenshteinDistance(a, b, limit) > limit);
    RC_ASSERT(mayBeWithin(distance, a.size(), b.size(), characterBag(a), characterBag(b)));

    // The same with code points of which two pairs share a slot and a bit.
    const auto widened = [](const std::string &narrow) {
        std::u32string wide(narrow.begin(), narrow.end());
        std::replace(wide.begin(), wide.end(), U'b', static_cast<char32_t>(U'a' + 128 * 36));
        std::replace(wide.begin(), wide.end(), U'0', U'\U00010330');
        return wide;
    };
    RC_ASSERT(levenshteinDistance(widened(a), widened(b)) == distance);
    RC_ASSERT(levenshteinDistance(widened(b), widened(a), distance) == distance);
    RC_ASSERT(mayBeWithin(distance, a.size(), b.size(), characterBag(widened(a)), characterBag(widened(b))));
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
