#include "analysis/text_groups.h"

#include "analysis/distance.h"

#include <algorithm>

namespace sonavo {

void TextGroup::remove(std::size_t number)
{
    if (m_places)
        m_places->remove(number);
}

std::optional<TextGroup::Search> TextGroup::searchFor(const SongSearch &search, std::string_view text,
                                                      std::uint64_t pairs) const
{
    const std::size_t longer = std::max(m_length, text.size());
    const std::size_t limit = largestDistance(longer, m_least);
    if (longer - std::min(m_length, text.size()) > limit)
        return std::nullopt;
    const auto numberOf = [this](BucketPosition position) {
        const auto song = std::lower_bound(m_songs.begin(), m_songs.end(), position);
        return static_cast<std::size_t>(song - m_songs.begin());
    };
    return Search{text, pairs, limit, numberOf(search.begin), numberOf(search.end), search.found};
}

void TextGroup::findNear(std::span<const Search> searches) const
{
    std::vector<CharacterPlaces<char>::Search> byPlaces;
    std::vector<std::vector<BucketPosition> *> found;
    for (const Search &search : searches) {
        if (!m_places || search.text.size() > LONGEST_PLACED) {
            lookThrough(search);
            continue;
        }
        byPlaces.push_back({search.text, search.limit, search.first, search.last});
        found.push_back(search.found);
    }
    if (byPlaces.empty())
        return;
    m_places->findNear(byPlaces, CharacterPlaces<char>::Removed::LeftOut,
                       [&](std::size_t search, std::uint32_t number) {
                           found[search]->push_back(m_songs[number]);
                           return true;
                       });
}

void TextGroup::lookThrough(const Search &search) const
{
    const std::size_t before = search.found->size();
    appendNear(*search.found, static_cast<std::uint32_t>(search.first),
               std::span(m_pairs).subspan(search.first, search.last - search.first), search.pairs,
               search.limit);
    for (BucketPosition &found : std::span(*search.found).subspan(before))
        found = m_songs[found];
}

void TextGroups::keep(std::vector<TextGroup> byLength, std::size_t count)
{
    std::erase_if(byLength, [](const TextGroup &group) { return group.songs().empty(); });
    m_groups = std::move(byLength);
    m_places.resize(count);
    for (std::uint32_t group = 0; group < m_groups.size(); ++group) {
        const auto songs = m_groups[group].songs();
        for (std::uint32_t number = 0; number < songs.size(); ++number)
            m_places[songs[number]] = {group, number};
    }
}

void TextGroups::remove(BucketPosition song)
{
    const Place place = m_places[song];
    m_groups[place.group].remove(place.number);
}

} // namespace sonavo
