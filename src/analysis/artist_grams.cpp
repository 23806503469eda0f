#include "analysis/artist_grams.h"

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

/// Whether going through so many entries takes less time than looking through the songs.
bool isRare(std::size_t entries, std::size_t songs)
{
    return entries * SONGS_PER_ENTRY + FEW_SONGS <= songs;
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
    Choice(const Grams &grams, std::string_view artist, std::size_t count)
        : m_grams(grams)
        , m_artist(artist)
        , m_count(count)
    {
        m_least[0].fill(0);
        for (std::size_t i = 1; i <= count; ++i) {
            std::fill_n(m_least[i].begin(), std::min(2 * i, artist.size() + 1), IMPOSSIBLE);
            for (std::size_t end = 2 * i; end <= artist.size(); ++end)
                m_least[i][end] = std::min({m_least[i][end - 1], withBigram(i, end), withTrigram(i, end)});
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
        return m_grams.starts[gram + 1] - m_grams.starts[gram];
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

    const Grams &m_grams;
    const std::string_view m_artist;
    const std::size_t m_count;
    /// By the number of n-grams and the length of the beginning that they are in: the fewest entries.
    std::array<std::array<std::uint32_t, LONGEST_ARTIST + 1>, MOST_GRAMS + 1> m_least;
};

void ArtistGrams::build(std::span<const PreparedSong> bucket)
{
    m_artists.build(
        bucket.size(), MATCH_ARTIST_SIMILARITY,
        [&](BucketPosition song) {
            return TextGroups::Key{bucket[song].artistLength, bucket[song].artistPairs};
        },
        [&](BucketPosition song) { return m_songs.artistOf(bucket[song]); });
    m_grams.clear();
    for (const TextGroup &group : m_artists.groups())
        m_grams.push_back(gramsOf(group, bucket));
}

ArtistGrams::Grams ArtistGrams::gramsOf(const TextGroup &group, std::span<const PreparedSong> bucket) const
{
    const auto songs = group.songs();
    if (songs.size() <= FEW_SONGS || songs.size() >= MOST_SONGS || group.length() > LONGEST_ARTIST)
        return {};
    // Count, lay out, fill: one array holds all lists.
    Grams grams;
    grams.starts.resize(GRAMS + 2);
    for (const BucketPosition song : songs) {
        forEachGram(m_songs.artistOf(bucket[song]),
                    [&](std::size_t gram, std::size_t) { ++grams.starts[gram + 1]; });
    }
    std::partial_sum(grams.starts.begin(), grams.starts.end(), grams.starts.begin());
    if (!tellArtistsApart(grams, group, bucket))
        return {};
    grams.entries.resize(grams.starts.back());
    for (auto number = static_cast<std::uint32_t>(songs.size()); number-- > 0;) {
        forEachGram(m_songs.artistOf(bucket[songs[number]]), [&](std::size_t gram, std::size_t place) {
            grams.entries[--grams.starts[gram + 1]] =
                number << PLACE_BITS | static_cast<std::uint32_t>(place);
        });
    }
    // Filled from their ends, the lists now begin where the ones before them did.
    grams.starts.erase(grams.starts.begin());
    return grams;
}

bool ArtistGrams::tellArtistsApart(const Grams &grams, const TextGroup &group,
                                   std::span<const PreparedSong> bucket) const
{
    constexpr std::size_t SAMPLES = 32;
    const auto songs = group.songs();
    const std::size_t limit = largestDistance(group.length(), MATCH_ARTIST_SIMILARITY);
    for (std::size_t i = 0; i < SAMPLES && limit < MOST_GRAMS; ++i) {
        const PreparedSong &song = bucket[songs[i * songs.size() / SAMPLES]];
        if (isRare(Choice(grams, m_songs.artistOf(song), limit + 1).entryCount(), songs.size()))
            return true;
    }
    return false;
}

void ArtistGrams::findMatching(std::span<const SongSearch> searches) const
{
    std::vector<TextGroup::Search> left;
    for (std::size_t i = 0; i < m_grams.size(); ++i) {
        const TextGroup &group = m_artists.groups()[i];
        left.clear();
        for (const SongSearch &search : searches) {
            const auto inGroup =
                group.searchFor(search, m_songs.artistOf(*search.song), search.song->artistPairs);
            if (inGroup && !findByGrams(group, m_grams[i], *inGroup))
                left.push_back(*inGroup);
        }
        group.findNear(left);
    }
}

/// @return false, having found nothing, if it is faster to look through all songs
bool ArtistGrams::findByGrams(const TextGroup &group, const Grams &grams, const TextGroup::Search &search)
{
    const std::size_t songs = search.last - search.first;
    if (grams.starts.empty() || songs < FEW_SONGS || search.text.size() > LONGEST_ARTIST ||
        search.limit >= MOST_GRAMS)
        return false;
    const Choice choice(grams, search.text, search.limit + 1);
    const std::size_t entries = choice.entryCount() * songs / group.songs().size();
    if (!isRare(entries, songs))
        return false;

    const auto surplus = static_cast<std::ptrdiff_t>(group.length() - search.text.size());
    choice.forEach([&](std::size_t gram, std::size_t place) {
        const auto list =
            std::span(grams.entries).subspan(grams.starts[gram], grams.starts[gram + 1] - grams.starts[gram]);
        auto entry = std::lower_bound(list.begin(), list.end(),
                                      static_cast<std::uint32_t>(search.first << PLACE_BITS));
        for (; entry != list.end() && *entry >> PLACE_BITS < search.last; ++entry) {
            const std::uint32_t number = *entry >> PLACE_BITS;
            const auto otherPlace = static_cast<std::ptrdiff_t>(*entry & ((1U << PLACE_BITS) - 1));
            const std::ptrdiff_t shift = otherPlace - static_cast<std::ptrdiff_t>(place);
            // At least so many insertions or deletions are before the n-gram and behind it.
            const auto least = static_cast<std::size_t>(std::abs(shift) + std::abs(surplus - shift));
            if (least <= search.limit && mayBeWithin(search.limit, group.pairsOf(number), search.pairs))
                search.found->push_back(group.songs()[number]);
        }
    });
    return true;
}

} // namespace sonavo
