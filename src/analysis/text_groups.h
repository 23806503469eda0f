#pragma once

#include "analysis/artist_index.h"
#include "analysis/character_places.h"
#include "analysis/disjoint_grams.h"
#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace sonavo {

/// A song of a bucket for which others with a similar text are looked for.
struct SongSearch
{
    const PreparedSong *song = nullptr;
    /// The positions in the bucket that are asked for.
    BucketPosition begin = 0;
    BucketPosition end = 0;
    /// Where those are appended that are found.
    std::vector<BucketPosition> *found = nullptr;
};

/// The songs of a bucket that have a text of one length, such as an artist of ten characters. They are
/// numbered from 0, in the order of the bucket.
class TextGroup
{
public:
    /// A text that is looked for.
    struct Search
    {
        std::string_view text;
        /// Its characterPairs().
        std::uint64_t pairs = 0;
        /// The most edits.
        std::size_t limit = 0;
        /// The numbers that are asked for: from the first to before the last.
        std::size_t first = 0;
        std::size_t last = 0;
        /// Where those are appended that are found.
        std::vector<BucketPosition> *found = nullptr;
    };

    /// @param length characters of each text
    /// @param least the similarity that is asked for; see calculateSimilarity()
    TextGroup(std::size_t length, double least)
        : m_length(length)
        , m_least(least)
    {}

    /// @param song behind those that were added before
    /// @param pairs characterPairs() of its text
    void add(BucketPosition song, std::uint64_t pairs)
    {
        m_songs.push_back(song);
        m_pairs.push_back(pairs);
    }
    /// Indexes the texts, unless they are looked through as fast. To be called once all are added.
    /// @param textOf gives the text of a song
    template <typename TextOf>
    void place(TextOf textOf)
    {
        constexpr std::size_t FEW = 256;
        if (m_songs.size() <= FEW || m_length > LONGEST_PLACED)
            return;
        m_places.emplace().build(m_length, m_songs.size(), largestDistanceToSimilar(m_length, m_least),
                                 [&](std::size_t number) { return textOf(m_songs[number]); });
    }
    /// Takes a song out of the index. Must not overlap with findNear().
    void remove(std::size_t number);

    [[nodiscard]] std::size_t length() const { return m_length; }
    /// The songs by number, those that were removed among them.
    [[nodiscard]] std::span<const BucketPosition> songs() const { return m_songs; }
    [[nodiscard]] std::uint64_t pairsOf(std::size_t number) const { return m_pairs[number]; }

    /// @param text the song's, and `pairs` its characterPairs()
    /// @return what to look for here, or nothing where no text can be similar
    [[nodiscard]] std::optional<Search> searchFor(const SongSearch &search, std::string_view text,
                                                  std::uint64_t pairs) const;

    /// Finds the songs that are not removed and whose texts are within the limit of a search. Others may be
    /// among them. Any thread may ask.
    void findNear(std::span<const Search> searches) const;

private:
    void lookThrough(const Search &search) const;

    std::size_t m_length = 0;
    double m_least = 0.0;
    std::vector<BucketPosition> m_songs;
    std::vector<std::uint64_t> m_pairs;
    std::optional<CharacterPlaces<char>> m_places;
};

/// All songs of a bucket, by the length of their texts.
class TextGroups
{
public:
    /// What is known of a text: its length, and its characterPairs().
    struct Key
    {
        std::size_t length = 0;
        std::uint64_t pairs = 0;
    };

    /// Replaces what it holds.
    /// @param count songs of the bucket
    /// @param least the similarity that will be asked for; see calculateSimilarity()
    /// @param keyOf gives the key for each position in the bucket, and `textOf` the text
    template <typename KeyOf, typename TextOf>
    void build(std::size_t count, double least, KeyOf keyOf, TextOf textOf)
    {
        std::vector<TextGroup> byLength;
        for (BucketPosition song = 0; song < count; ++song) {
            const Key key = keyOf(song);
            while (byLength.size() <= key.length)
                byLength.emplace_back(byLength.size(), least);
            byLength[key.length].add(song, key.pairs);
        }
        keep(std::move(byLength), count);
        for (TextGroup &group : m_groups)
            group.place(textOf);
    }

    /// Takes a song out; it may still be found. Must not overlap with searches.
    void remove(BucketPosition song);

    /// By length; none is empty.
    [[nodiscard]] std::span<const TextGroup> groups() const { return m_groups; }

private:
    /// Where a song is in the groups.
    struct Place
    {
        std::uint32_t group = 0;
        std::uint32_t number = 0;
    };

    void keep(std::vector<TextGroup> byLength, std::size_t count);

    std::vector<TextGroup> m_groups;
    /// By position in the bucket.
    std::vector<Place> m_places;
};

} // namespace sonavo
