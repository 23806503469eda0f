#pragma once

#include "analysis/character_counts.h"
#include "analysis/further_songs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace sonavo {

/// The distinct artists of FurtherSongs, which of them are similar, and their songs. Immutable; any thread
/// may read it.
class FurtherArtists
{
public:
    using Position = FurtherSongs::Position;
    /// Numbers from 0, by the length of the artist.
    using Artist = std::uint32_t;

    /// Finds similar artists on all cores.
    /// @param songs must outlive this
    /// @param stop leaves this incomplete once a stop is requested
    FurtherArtists(const FurtherSongs &songs, const std::stop_token &stop);

    [[nodiscard]] std::size_t size() const { return m_entries.size(); }
    [[nodiscard]] Artist of(Position song) const { return m_artists[song]; }
    /// Ascending.
    [[nodiscard]] std::span<const Position> songsOf(Artist artist) const
    {
        const Entry &entry = m_entries[artist];
        return std::span(m_songs).subspan(entry.begin, entry.end - entry.begin);
    }
    /// The songs of one artist after those of the other.
    [[nodiscard]] const std::vector<Position> &songs() const { return m_songs; }

    /// All other artists that are similar (see songsMatchFurther()), or nothing if they were not looked for,
    /// since too many have parts in common with this one.
    [[nodiscard]] std::optional<std::span<const Artist>> similarTo(Artist artist) const
    {
        const Entry &entry = m_entries[artist];
        return entry.isKnown ? std::optional(std::span(entry.similar)) : std::nullopt;
    }
    /// Whether similarTo() knows those of all artists.
    [[nodiscard]] bool areAllKnown() const { return m_areAllKnown; }
    /// The same number for all artists that are similar.
    [[nodiscard]] Artist familyOf(Artist artist) const { return m_areAllKnown ? m_families[artist] : 0; }

    /// A quick test: false only for artists that are not similar.
    [[nodiscard]] bool mayBeSimilar(Artist a, Artist b) const;
    /// See sonavo::pairBitsOf().
    [[nodiscard]] std::uint64_t pairBitsOf(Artist artist) const { return m_pairBits[artist]; }

private:
    struct Entry
    {
        std::uint32_t length = 0;
        /// The artist's part of m_songs.
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        bool isKnown = false;
        std::vector<Artist> similar;
    };
    /// The artists by the pairs of neighbouring characters that they have.
    class Grams;
    class Search;

    void numberArtists(const FurtherSongs &songs);
    void joinFamilies();

    std::vector<Entry> m_entries;
    /// Side by side, to be read fast.
    std::vector<std::uint64_t> m_pairBits;
    std::vector<CharacterCounts> m_counts;
    std::vector<Artist> m_families;
    /// By song.
    std::vector<Artist> m_artists;
    std::vector<Position> m_songs;
    bool m_areAllKnown = true;
};

} // namespace sonavo
