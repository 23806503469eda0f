#include "analysis/bounded_distance.h"
#include "analysis/similarity.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

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
    const std::size_t distance = levenshteinDistance(a, b);
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

} // namespace
} // namespace sonavo
