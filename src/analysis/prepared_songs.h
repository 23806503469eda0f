#pragma once

#include "analysis/text_pool.h"
#include "model/song.h"

#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace sonavo {

/// A lower-cased text, reduced to what shows at a glance that another one does not contain it.
struct TextOutline
{
    /// Which characters occur; characters share bits.
    std::uint64_t characters = 0;
    /// UTF-16 units.
    std::uint32_t length = 0;
    std::uint32_t hash = 0;

    /// Whether one of the texts may contain the other. An empty text is contained in nothing.
    [[nodiscard]] bool mayContainOrBeIn(const TextOutline &other) const
    {
        if (length == other.length)
            return hash == other.hash && length != 0;
        const TextOutline &inner = length < other.length ? *this : other;
        const TextOutline &outer = length < other.length ? other : *this;
        return inner.length != 0 && (inner.characters & ~outer.characters) == 0;
    }
};

/// A song as the comparison of many songs needs it: numbers in place of texts.
struct PreparedSong
{
    /// Seconds.
    double duration = 0.0;
    /// characterBag() of artist and title together.
    std::uint64_t bag = 0;
    TextOutline title;
    TextOutline name;
    /// Numbers of the normalised artist, title and file name: equal texts have equal numbers.
    std::uint32_t artistNumber = 0;
    std::uint32_t titleNumber = 0;
    std::uint32_t nameNumber = 0;
    /// Characters of the normalised form of artist and title together.
    std::uint32_t artistAndTitleLength = 0;
};

/// The songs of a run, each prepared once.
class PreparedSongs
{
public:
    explicit PreparedSongs(const QList<Song> &songs);

    [[nodiscard]] std::size_t size() const { return m_songs.size(); }
    [[nodiscard]] const PreparedSong &operator[](std::size_t position) const { return m_songs[position]; }

    [[nodiscard]] std::string_view artist(std::uint32_t number) const { return m_artists[number]; }
    [[nodiscard]] std::string_view artist(const PreparedSong &song) const
    {
        return artist(song.artistNumber);
    }
    [[nodiscard]] std::string_view title(const PreparedSong &song) const
    {
        return m_titles[song.titleNumber];
    }
    /// Artists are numbered from 0 to below this.
    [[nodiscard]] std::size_t artistCount() const { return m_artistBags.size(); }
    [[nodiscard]] std::uint64_t artistBag(const PreparedSong &song) const
    {
        return m_artistBags[song.artistNumber];
    }

    /// Numbers, below wordCount(), of the words of a title that two copies can have in common, each once.
    [[nodiscard]] std::span<const std::uint32_t> titleWords(const PreparedSong &song) const;
    [[nodiscard]] std::size_t wordCount() const { return m_words.size(); }

private:
    std::uint32_t addArtist(std::string_view normalizedArtist);
    std::uint32_t addTitle(std::string_view normalizedTitle);

    std::vector<PreparedSong> m_songs;
    TextPool m_artists;
    std::vector<std::uint64_t> m_artistBags;
    TextPool m_titles;
    TextPool m_words;
    /// The words of all titles one after the other, and for each title where they end.
    std::vector<std::uint32_t> m_titleWords;
    std::vector<std::size_t> m_titleWordEnds;
};

} // namespace sonavo
