#pragma once

#include "analysis/further_artists.h"
#include "analysis/further_keys.h"
#include "analysis/further_songs.h"
#include "analysis/further_texts.h"
#include "analysis/window_index.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <stop_token>
#include <vector>

namespace sonavo {

/// Where FurtherMatches looks songs up. Any thread may read it.
class FurtherIndex
{
public:
    using Position = FurtherSongs::Position;

    /// The songs whose playing times allow that they match a song.
    struct Window
    {
        Position begin = 0;
        Position end = 0;
    };

    /// Builds the index on all cores.
    /// @param songs must outlive the index
    /// @param stop leaves the index incomplete once a stop is requested
    FurtherIndex(const FurtherSongs &songs, const std::stop_token &stop);

    [[nodiscard]] const FurtherSongs &songs() const { return m_songs; }
    [[nodiscard]] const FurtherArtists &artists() const { return m_artists; }
    [[nodiscard]] Window windowOf(Position song) const;
    /// The songs of an artist in a window, ascending.
    [[nodiscard]] std::span<const Position> songsIn(Window window, FurtherArtists::Artist artist) const;
    /// With how many songs one is compared without asking for keys.
    [[nodiscard]] std::size_t fewSongs() const { return m_fewSongs; }

    /// Under the keys of FurtherKeys, in the family of the artist (see FurtherArtists).
    [[nodiscard]] const WindowIndex &byKey() const { return m_byKey; }
    /// Whether a gram is a key: where songs have many keys, only a half or a quarter of the grams are. All
    /// words are.
    [[nodiscard]] bool isKey(FurtherKeys::Hash gram) const
    {
        constexpr FurtherKeys::Hash MULTIPLIER = 0x9FB21C651E98DF25;
        return ((gram * MULTIPLIER >> 32) & m_gramMask) == 0;
    }
    /// Whether byKey() has all songs that can match those of an artist. It has for artists that have more
    /// similar ones in a window than fewSongs().
    [[nodiscard]] bool hasKeysFor(FurtherArtists::Artist artist) const { return m_hasKeysFor[artist] != 0; }
    /// Whether any song can have this title; see FurtherKeys::titleKeyOf(). In the scope of its family.
    [[nodiscard]] bool mayHaveTitle(FurtherKeys::Hash title) const { return m_hasTitle[placeOf(title)]; }

    /// The artists of songs that are of one length.
    struct ArtistLength
    {
        FurtherTexts artists;
        /// FurtherArtists::pairBitsOf() of each: side by side, to be read fast.
        std::vector<std::uint64_t> pairBits;
    };
    /// Empty if the similar artists of all are known.
    [[nodiscard]] const std::vector<ArtistLength> &byArtistLength() const { return m_byArtistLength; }

    /// Indexes the full texts of all songs with keys: worthwhile where keys are common to very many songs.
    /// Must not overlap with any other call. Uses all cores.
    void placeTexts(const std::stop_token &stop);
    /// Takes a song out: it is found only where removed songs are asked for. Must not overlap with any other
    /// call.
    void remove(Position song);
    [[nodiscard]] bool isRemoved(Position song) const { return m_isRemoved[song]; }
    /// Empty if they are not indexed.
    [[nodiscard]] const std::vector<FurtherTexts> &byTextLength() const { return m_byTextLength; }

private:
    [[nodiscard]] std::size_t placeOf(FurtherKeys::Hash title) const
    {
        return title >> 32 & (m_hasTitle.size() - 1);
    }
    [[nodiscard]] bool isLarge(FurtherArtists::Artist artist) const;
    void chooseSongsWithKeys(const std::stop_token &stop);
    void groupByArtistLength(const std::stop_token &stop);
    [[nodiscard]] bool hasKeys(Position song) const { return m_hasKeys[m_artists.of(song)] != 0; }
    void countKeys();
    void chooseGrams(std::span<const Position> songs);
    template <typename Visit>
    void forEachKeyOf(Position position, FurtherKeys &keys, Visit visit) const;
    void fillBlock(FurtherKeys &keys, std::size_t block);

    const FurtherSongs &m_songs;
    std::vector<double> m_durations;
    FurtherArtists m_artists;
    std::size_t m_fewSongs = 0;
    /// By artist; bytes, so that threads can write to neighbours.
    std::vector<char> m_hasKeysFor;
    std::vector<char> m_hasKeys;
    WindowIndex m_byKey;
    /// Which bits of a gram's hash are zero in those that are keys: two, one, or none where all are.
    FurtherKeys::Hash m_gramMask = 0;
    std::vector<bool> m_hasTitle;
    std::vector<ArtistLength> m_byArtistLength;
    std::vector<FurtherTexts> m_byTextLength;
    std::vector<bool> m_isRemoved;
};

} // namespace sonavo
