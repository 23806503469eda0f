#include "analysis/character_places.h"
#include "generators/random_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace sonavo {
namespace {

char characterOf(RandomSource &random, std::size_t characters)
{
    return " abcdefghijklmnopqrstuvwxyz0123456789"[random.below(characters)];
}

/// One edit that leaves the length, or two; none in the first characters.
void edit(std::string &text, std::size_t first, RandomSource &random, std::size_t characters)
{
    const auto place = [&] { return first + random.below(text.size() - first); };
    if (random.isOneIn(2)) {
        text[place()] = characterOf(random, characters);
        return;
    }
    text.erase(place(), 1);
    text.insert(first + random.below(text.size() - first + 1), 1, characterOf(random, characters));
}

TEST(CharacterPlaces, FindsTheTextsWithinTheLimitAndNoOthers)
{
    // Some searches end early.
    constexpr std::size_t MOST_FOUND = 700;
    constexpr std::size_t TEXTS = 1400;
    constexpr std::size_t END = TEXTS - 10;
    RandomSource random(5);
    for (const std::size_t length : {1U, 4U, 10U, 16U, 33U, 70U, 128U}) {
        for (const std::size_t characters : {3U, 11U, 37U}) {
            std::string model;
            while (model.size() < length)
                model += characterOf(random, characters);
            const std::size_t common = characters == 3 ? 0 : random.below(length);
            std::vector<std::string> texts(TEXTS, model);
            for (std::string &text : texts) {
                for (std::size_t edits = random.below(length + 1); edits > 0; --edits)
                    edit(text, common, random, characters);
            }
            CharacterPlaces<char> places;
            places.build(length, texts.size(), length, [&](std::size_t number) { return texts[number]; });
            std::vector<std::string> asked(20);
            std::vector<CharacterPlaces<char>::Search> searches;
            for (std::string &text : asked) {
                text = texts[random.below(texts.size())];
                const std::size_t surplus = random.below(length / 3 + 1);
                if (random.isOneIn(3))
                    text.erase(random.below(length - surplus + 1), surplus);
                else if (random.isOneIn(2) && length + surplus <= LONGEST_PLACED)
                    text.insert(random.below(length), surplus, characterOf(random, characters));
                searches.push_back({text, surplus + random.below(length / 3 + 1), 10, END});
            }
            places.remove(17);
            using Places = CharacterPlaces<char>;
            for (const auto removed : {Places::Removed::LeftOut, Places::Removed::Included}) {
                using Numbers = std::vector<std::uint32_t>;
                std::vector<Numbers> found(asked.size());
                std::vector<Numbers> expected(asked.size());
                for (std::size_t i = 0; i < searches.size(); ++i) {
                    for (std::uint32_t number = 10; number < END && expected[i].size() < MOST_FOUND;
                         ++number) {
                        if ((number != 17 || removed == Places::Removed::Included) &&
                            levenshteinDistance(asked[i], texts[number]) <= searches[i].limit)
                            expected[i].push_back(number);
                    }
                }
                places.findNear(searches, removed, [&](std::size_t search, std::uint32_t number) {
                    found[search].push_back(number);
                    return found[search].size() < MOST_FOUND;
                });
                EXPECT_EQ(found, expected) << length << " of " << characters;
            }
        }
    }
}

} // namespace
} // namespace sonavo
