#pragma once

#include "analysis/string_pool.h"
#include "model/song.h"

#include <QList>
#include <QStringView>

#include <cstddef>
#include <cstdint>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// A song's index in the list of an analysis.
using SongIndex = std::uint32_t;

/// What a comparison checks first: it rejects most pairs without reading their texts.
struct PreparedSong
{
    /// Seconds.
    double duration = 0.0;
    /// characterBag() of the normalised artist, and of artist and title joined.
    std::uint64_t artistBag = 0;
    std::uint64_t fullBag = 0;
    /// characterPairs() of the same.
    std::uint64_t artistPairs = 0;
    std::uint64_t fullPairs = 0;
    /// bigramsOf() the lower-cased title and file name.
    std::uint64_t titleBigrams = 0;
    std::uint64_t nameBigrams = 0;
    /// UTF-16 units of the lower-cased title and file name.
    std::uint32_t titleLength = 0;
    std::uint32_t nameLength = 0;
    /// Characters of the normalised artist, and of artist and title joined.
    std::uint32_t artistLength = 0;
    std::uint32_t fullLength = 0;
    /// Equal for songs whose normalised artists are equal, and the same for titles; below the number of
    /// songs.
    std::uint32_t artistId = 0;
    std::uint32_t titleId = 0;
    /// Where the song stands in the list.
    SongIndex index = 0;
};

/// The songs of an analysis, each normalised once. Immutable; any thread may read it.
class PreparedSongs
{
public:
    /// Works on all cores.
    /// @param songs fewer than 2^32, with finite durations
    /// @param stop ends it early; then only its destructor may be called
    explicit PreparedSongs(QList<Song> songs, const std::stop_token &stop = {});

    [[nodiscard]] std::size_t size() const { return m_prepared.size(); }
    [[nodiscard]] const PreparedSong &operator[](SongIndex index) const { return m_prepared[index]; }
    /// The song as it was given.
    [[nodiscard]] const Song &song(SongIndex index) const { return m_songs[static_cast<qsizetype>(index)]; }
    [[nodiscard]] const Song &song(const PreparedSong &prepared) const { return song(prepared.index); }

    /// Normalised.
    [[nodiscard]] std::string_view artistOf(const PreparedSong &song) const;
    /// Artist and title joined, normalised.
    [[nodiscard]] std::string fullTextOf(const PreparedSong &song) const;
    /// Artist ids are below this.
    [[nodiscard]] std::size_t artistCount() const { return m_artists.size(); }
    /// Equal for songs whose normalised file names are equal; below the number of songs.
    [[nodiscard]] std::uint32_t nameIdOf(SongIndex index) const { return m_nameIds[index]; }
    /// Equal for songs whose paths are equal; below the number of songs.
    [[nodiscard]] std::uint32_t pathIdOf(SongIndex index) const { return m_pathIds[index]; }

    /// Ids of the title's words of at least MATCH_WORD_LENGTH characters, ascending, each once.
    [[nodiscard]] std::span<const std::uint32_t> titleWordsOf(const PreparedSong &song) const;
    /// Word ids are below this.
    [[nodiscard]] std::size_t wordCount() const { return m_wordCount; }

private:
    struct Texts;

    void prepareAll(const std::stop_token &stop);
    void prepare(SongIndex begin, Texts &texts);
    void addArtistsAndTitles(const Texts &texts);
    std::uint32_t addTitle(std::string_view normalizedTitle, std::size_t hash);
    void identifyNamesAndPaths();

    const QList<Song> m_songs;
    std::vector<PreparedSong> m_prepared;
    /// Hashes of the names and paths until all songs are prepared.
    std::vector<std::uint32_t> m_nameIds;
    std::vector<std::uint32_t> m_pathIds;
    StringPool m_artists;
    StringPool m_titles;
    /// Empty once all songs are prepared.
    StringPool m_words;
    std::size_t m_wordCount = 0;
    /// The words of all titles one after the other, and for each title where they end.
    std::vector<std::uint32_t> m_titleWords;
    std::vector<std::size_t> m_titleWordEnds;
};

/// One bit for each pair of neighbouring characters in a lower-cased text; different pairs can share a bit.
/// A text that contains another has all of its bits.
[[nodiscard]] std::uint64_t bigramsOf(QStringView loweredText);

} // namespace sonavo
