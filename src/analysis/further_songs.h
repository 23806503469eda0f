#pragma once

#include "analysis/string_pool.h"
#include "model/song.h"

#include <QList>

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Whether a title is compared with its track number.
enum class TrackNumber
{
    Kept,
    Dropped
};

/// What a comparison of two songs checks first when looking further: most pairs are rejected without reading
/// their texts.
struct FurtherSong
{
    [[nodiscard]] bool isNumbered() const { return numberLength > 0; }
    /// Characters of artist and title joined.
    [[nodiscard]] std::uint32_t fullLength(TrackNumber number) const
    {
        return number == TrackNumber::Kept ? wholeLength : wholeLength - numberLength;
    }

    /// Seconds.
    double duration = 0.0;
    /// characterBag() of the artist, and of artist and title joined.
    std::uint64_t artistBag = 0;
    std::uint64_t fullBag = 0;
    /// One bit for each pair of neighbouring characters of the title without its number; different pairs can
    /// share a bit. A title that contains another has all of its bits.
    std::uint64_t titleBigrams = 0;
    /// Characters of the artist, of artist and title joined, and of the track number with the blank behind
    /// it.
    std::uint32_t artistLength = 0;
    std::uint32_t wholeLength = 0;
    std::uint32_t numberLength = 0;
    /// Equal for songs whose prepared artists are equal, and the same for titles.
    std::uint32_t artistId = 0;
    std::uint32_t titleId = 0;
    /// Where the song stands in the list.
    std::uint32_t index = 0;
};

/// The songs that are compared when looking further, sorted by playing time. Their texts are prepared in
/// another way than for the four passes:
/// - letters and digits of every script count (see normalizeAllScripts());
/// - "The" before an artist is dropped;
/// - a title that begins with one to three digits and a blank has a track number, which is compared only
/// where
///   the other title has one, too.
///
/// Songs that can match no other are left out: those without a title word (see isTitleWord()), and those of a
/// path that an earlier song has, since one file is no copy of itself. Immutable; any thread may read it.
class FurtherSongs
{
public:
    /// The position of a song among those that are compared.
    using Position = std::uint32_t;

    /// @param songs fewer than 2^32, with finite durations
    /// @param stop leaves some songs out once a stop is requested
    FurtherSongs(const QList<Song> &songs, const std::stop_token &stop);

    [[nodiscard]] std::size_t size() const { return m_songs.size(); }
    [[nodiscard]] const FurtherSong &operator[](Position position) const { return m_songs[position]; }
    [[nodiscard]] auto begin() const { return m_songs.begin(); }
    [[nodiscard]] auto end() const { return m_songs.end(); }

    [[nodiscard]] std::u32string_view artistOf(const FurtherSong &song) const
    {
        return m_artists[song.artistId];
    }
    [[nodiscard]] std::u32string_view titleOf(const FurtherSong &song, TrackNumber number) const
    {
        return m_titles[song.titleId].substr(number == TrackNumber::Kept ? 0 : song.numberLength);
    }
    /// Artist and title joined by a blank.
    void fullTextInto(std::u32string &result, const FurtherSong &song, TrackNumber number) const;

private:
    void add(const Song &song, std::uint32_t index);
    void readArtist(const QString &artist);

    BasicStringPool<char32_t> m_artists;
    BasicStringPool<char32_t> m_titles;
    std::vector<FurtherSong> m_songs;
    /// The song that was read last, and the artist that it names.
    FurtherSong m_last;
    QString m_lastArtist;
    std::u32string m_text;
};

/// Whether two titles that share this word can be those of one recording: it has at least three characters,
/// or one of a script in which words are short.
[[nodiscard]] bool isTitleWord(std::u32string_view word);

/// Whether two songs are the same recording when looking further: the four conditions of songsMatch(), over
/// the texts of FurtherSongs. One title contains another where it has all of its words in a row. File names
/// are not compared: artist and title are read from them.
///
/// Symmetric and pure, but not transitive; any thread may call it. FurtherMatches relies on the second
/// condition.
[[nodiscard]] bool songsMatchFurther(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b);

} // namespace sonavo
