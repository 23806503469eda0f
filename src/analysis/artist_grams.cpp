#include "analysis/artist_grams.h"

#include "analysis/disjoint_grams.h"
#include "analysis/distance.h"
#include "analysis/matching.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace sonavo {
namespace {

/// Fewer songs than this are looked through as fast as n-grams are chosen.
constexpr std::size_t FEW_SONGS = 256;
/// How many songs can be looked through in the time that an entry of a list takes.
constexpr std::size_t SONGS_PER_ENTRY = 256;

/// Longer artists are few.
constexpr std::size_t LONGEST_ARTIST = 64;
constexpr std::size_t MOST_GRAMS = LONGEST_ARTIST / 2;
constexpr int PLACE_BITS = 8;
constexpr std::size_t MOST_SONGS = std::size_t{1} << (32 - PLACE_BITS);

constexpr std::size_t BIGRAMS = ALPHABET * ALPHABET;
constexpr std::size_t GRAMS = BIGRAMS + BIGRAMS * ALPHABET;

std::size_t bigramAt(std::string_view text, std::size_t place)
{
    return symbolOf(text[place]) * ALPHABET + symbolOf(text[place + 1]);
}

std::size_t trigramAt(std::string_view text, std::size_t place)
{
    return BIGRAMS + bigramAt(text, place) * ALPHABET + symbolOf(text[place + 2]);
}

/// Calls `visit` with each bigram and trigram of a text and where it stands.
template <typename Visit>
void forEachGram(std::string_view text, Visit visit)
{
    for (std::size_t place = 0; place + 1 < text.size(); ++place) {
        visit(bigramAt(text, place), place);
        if (place + 2 < text.size())
            visit(trigramAt(text, place), place);
    }
}

} // namespace

/// The n-grams of an artist that do not overlap and have the fewest entries together, by dynamic programming.
class ArtistGrams::Choice
{
public:
    /// @param artist at most LONGEST_ARTIST characters
    /// @param count how many n-grams, at most MOST_GRAMS
    Choice(const Group &group, std::string_view artist, std::size_t count)
        : m_group(group)
        , m_artist(artist)
        , m_count(count)
    {
        m_least[0].fill(0);
        for (std::size_t grams = 1; grams <= count; ++grams) {
            std::fill_n(m_least[grams].begin(), std::min(2 * grams, artist.size() + 1), IMPOSSIBLE);
            for (std::size_t end = 2 * grams; end <= artist.size(); ++end)
                m_least[grams][end] =
                    std::min({m_least[grams][end - 1], withBigram(grams, end), withTrigram(grams, end)});
        }
    }

    /// The entries of all, or a very large number if there are too few n-grams.
    [[nodiscard]] std::size_t entryCount() const { return m_least[m_count][m_artist.size()]; }

    /// Calls `visit` with each and where it stands.
    template <typename Visit>
    void forEach(Visit visit) const
    {
        std::size_t end = m_artist.size();
        for (std::size_t grams = m_count; grams > 0;) {
            const std::uint32_t least = m_least[grams][end];
            if (least == m_least[grams][end - 1]) {
                --end;
                continue;
            }
            const bool isBigram = least == withBigram(grams, end);
            end -= isBigram ? 2 : 3;
            visit(isBigram ? bigramAt(m_artist, end) : trigramAt(m_artist, end), end);
            --grams;
        }
    }

private:
    static constexpr std::uint32_t IMPOSSIBLE = UINT32_MAX / 2;

    [[nodiscard]] std::uint32_t sizeOf(std::size_t gram) const
    {
        return m_group.starts[gram + 1] - m_group.starts[gram];
    }
    [[nodiscard]] std::uint32_t withBigram(std::size_t grams, std::size_t end) const
    {
        return std::min(m_least[grams - 1][end - 2] + sizeOf(bigramAt(m_artist, end - 2)), IMPOSSIBLE);
    }
    [[nodiscard]] std::uint32_t withTrigram(std::size_t grams, std::size_t end) const
    {
        return end < 3
                   ? IMPOSSIBLE
                   : std::min(m_least[grams - 1][end - 3] + sizeOf(trigramAt(m_artist, end - 3)), IMPOSSIBLE);
    }

    const Group &m_group;
    const std::string_view m_artist;
    const std::size_t m_count;
    /// By the number of n-grams and the length of the beginning that they are in: the fewest entries.
    std::array<std::array<std::uint32_t, LONGEST_ARTIST + 1>, MOST_GRAMS + 1> m_least;
};

void ArtistGrams::build(std::span<const PreparedSong> bucket)
{
    std::uint32_t longest = 0;
    for (const PreparedSong &song : bucket)
        longest = std::max(longest, song.artistLength);
    std::vector<Group> groups(std::size_t{longest} + 1);
    for (BucketPosition i = 0; i < bucket.size(); ++i) {
        Group &group = groups[bucket[i].artistLength];
        group.length = bucket[i].artistLength;
        group.songs.push_back(i);
        group.pairs.push_back(bucket[i].artistPairs);
    }
    std::erase_if(groups, [](const Group &group) { return group.songs.empty(); });
    for (Group &group : groups) {
        if (group.songs.size() > FEW_SONGS && group.songs.size() < MOST_SONGS &&
            group.length <= LONGEST_ARTIST)
            listGrams(group, bucket);
        if (group.songs.size() > FEW_SONGS && group.length <= LONGEST_PLACED)
            group.places.emplace().build(
                group.length, group.songs.size(),
                largestDistanceToSimilar(group.length, MATCH_ARTIST_SIMILARITY),
                [&](std::size_t number) { return m_songs.artistOf(bucket[group.songs[number]]); });
    }
    m_groups = std::move(groups);
    m_places.resize(bucket.size());
    for (std::uint32_t group = 0; group < m_groups.size(); ++group) {
        const std::vector<BucketPosition> &songs = m_groups[group].songs;
        for (std::uint32_t number = 0; number < songs.size(); ++number)
            m_places[songs[number]] = {group, number};
    }
}

void ArtistGrams::remove(BucketPosition position)
{
    const Place place = m_places[position];
    Group &group = m_groups[place.group];
    if (group.places)
        group.places->remove(place.number);
}

void ArtistGrams::listGrams(Group &group, std::span<const PreparedSong> bucket) const
{
    // Count, lay out, fill: one array holds all lists.
    group.starts.assign(GRAMS + 1, 0);
    for (const BucketPosition song : group.songs) {
        forEachGram(m_songs.artistOf(bucket[song]),
                    [&](std::size_t gram, std::size_t) { ++group.starts[gram]; });
    }
    std::partial_sum(group.starts.begin(), group.starts.end(), group.starts.begin());
    group.entries.resize(group.starts.back());
    for (auto number = static_cast<std::uint32_t>(group.songs.size()); number-- > 0;) {
        forEachGram(m_songs.artistOf(bucket[group.songs[number]]), [&](std::size_t gram, std::size_t place) {
            group.entries[--group.starts[gram]] = number << PLACE_BITS | static_cast<std::uint32_t>(place);
        });
    }
}

void ArtistGrams::findMatching(std::span<const Search> searches) const
{
    for (const Group &group : m_groups)
        findInGroup(group, searches);
}

void ArtistGrams::findInGroup(const Group &group, std::span<const Search> searches) const
{
    const auto numberOf = [&group](BucketPosition position) {
        const auto at = std::lower_bound(group.songs.begin(), group.songs.end(), position);
        return static_cast<std::size_t>(at - group.songs.begin());
    };
    std::vector<CharacterPlaces<char>::Search> byPlaces;
    std::vector<std::vector<BucketPosition> *> foundByPlaces;
    for (const Search &search : searches) {
        const std::string_view artist = m_songs.artistOf(*search.song);
        const std::size_t longer = std::max(group.length, artist.size());
        const std::size_t limit = largestDistance(longer, MATCH_ARTIST_SIMILARITY);
        if (longer - std::min(group.length, artist.size()) > limit)
            continue;
        const GroupSearch inGroup{
            artist,      search.song->artistPairs, limit, numberOf(search.begin), numberOf(search.end),
            search.found};
        if (findByGrams(group, inGroup))
            continue;
        if (group.places && artist.size() <= LONGEST_PLACED) {
            byPlaces.push_back({artist, limit, inGroup.first, inGroup.last});
            foundByPlaces.push_back(search.found);
            continue;
        }
        const std::size_t before = search.found->size();
        appendNear(*search.found, static_cast<std::uint32_t>(inGroup.first),
                   std::span(group.pairs).subspan(inGroup.first, inGroup.last - inGroup.first), inGroup.pairs,
                   limit);
        for (BucketPosition &found : std::span(*search.found).subspan(before))
            found = group.songs[found];
    }
    if (byPlaces.empty())
        return;
    group.places->findNear(byPlaces, CharacterPlaces<char>::Removed::LeftOut,
                           [&](std::size_t search, std::uint32_t number) {
                               foundByPlaces[search]->push_back(group.songs[number]);
                               return true;
                           });
}

/// @return false, having found nothing, if it is faster to look through all songs
bool ArtistGrams::findByGrams(const Group &group, const GroupSearch &search)
{
    const std::size_t songs = search.last - search.first;
    if (group.starts.empty() || songs < FEW_SONGS || search.artist.size() > LONGEST_ARTIST ||
        search.limit >= MOST_GRAMS)
        return false;
    const Choice choice(group, search.artist, search.limit + 1);
    const std::size_t entries = choice.entryCount() * songs / group.songs.size();
    if (entries * SONGS_PER_ENTRY + FEW_SONGS > songs)
        return false;

    const auto surplus = static_cast<std::ptrdiff_t>(group.length - search.artist.size());
    choice.forEach([&](std::size_t gram, std::size_t place) {
        const auto list =
            std::span(group.entries).subspan(group.starts[gram], group.starts[gram + 1] - group.starts[gram]);
        auto entry = std::lower_bound(list.begin(), list.end(),
                                      static_cast<std::uint32_t>(search.first << PLACE_BITS));
        for (; entry != list.end() && *entry >> PLACE_BITS < search.last; ++entry) {
            const std::uint32_t number = *entry >> PLACE_BITS;
            const auto otherPlace = static_cast<std::ptrdiff_t>(*entry & ((1U << PLACE_BITS) - 1));
            const std::ptrdiff_t shift = otherPlace - static_cast<std::ptrdiff_t>(place);
            // At least so many insertions or deletions are before the n-gram and behind it.
            const auto least = static_cast<std::size_t>(std::abs(shift) + std::abs(surplus - shift));
            if (least <= search.limit && mayBeWithin(search.limit, group.pairs[number], search.pairs))
                search.found->push_back(group.songs[number]);
        }
    });
    return true;
}

} // namespace sonavo
