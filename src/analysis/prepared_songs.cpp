#include "analysis/prepared_songs.h"

#include "analysis/distance.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"

#include <algorithm>

namespace sonavo {
namespace {

/// As normalising "artist - title" would give it.
void joinInto(std::string &result, std::string_view artist, std::string_view title)
{
    result = artist;
    if (!artist.empty() && !title.empty())
        result += ' ';
    result += title;
}

} // namespace

PreparedSongs::PreparedSongs(QList<Song> songs)
    : m_songs(std::move(songs))
{
    const auto count = static_cast<std::size_t>(m_songs.size());
    m_prepared.reserve(count);
    m_nameIds.reserve(count);
    m_titles.reserve(count);
    StringPool names;
    names.reserve(count);

    QString lowered;
    std::string artist;
    std::string title;
    std::string joined;
    std::string name;
    PreparedSong prepared;
    const QString *previousArtist = nullptr;
    for (const Song &song : m_songs) {
        prepared.duration = song.duration;

        // Neighbours in a folder are mostly by one artist.
        if (!previousArtist || song.artist != *previousArtist) {
            previousArtist = &song.artist;
            artist = normalizeString(song.artist);
            prepared.artistId = m_artists.add(artist);
            prepared.artistLength = static_cast<std::uint32_t>(artist.size());
            prepared.artistBag = characterBag(artist);
        }

        lowerInto(lowered, song.title);
        prepared.titleLength = static_cast<std::uint32_t>(lowered.size());
        prepared.titleBigrams = bigramsOf(lowered);
        normalizeLoweredInto(title, lowered);
        prepared.titleId = addTitle(title);

        joinInto(joined, artist, title);
        prepared.fullLength = static_cast<std::uint32_t>(joined.size());
        prepared.fullBag = characterBag(joined);

        lowerInto(lowered, song.name);
        prepared.nameLength = static_cast<std::uint32_t>(lowered.size());
        prepared.nameBigrams = bigramsOf(lowered);
        normalizeLoweredInto(name, lowered);
        m_nameIds.push_back(names.add(name));

        m_prepared.push_back(prepared);
        ++prepared.index;
    }
}

std::uint32_t PreparedSongs::addTitle(std::string_view normalizedTitle)
{
    const std::uint32_t id = m_titles.add(normalizedTitle);
    if (id < m_titleWordEnds.size())
        return id;

    const auto start = static_cast<std::ptrdiff_t>(m_titleWords.size());
    forEachWord(normalizedTitle, [this](std::string_view word) {
        if (word.size() >= MATCH_WORD_LENGTH)
            m_titleWords.push_back(m_words.add(word));
    });
    std::sort(m_titleWords.begin() + start, m_titleWords.end());
    m_titleWords.erase(std::unique(m_titleWords.begin() + start, m_titleWords.end()), m_titleWords.end());
    m_titleWordEnds.push_back(m_titleWords.size());
    return id;
}

std::string_view PreparedSongs::artistOf(const PreparedSong &song) const
{
    return m_artists[song.artistId];
}

std::string PreparedSongs::fullTextOf(const PreparedSong &song) const
{
    std::string text;
    joinInto(text, m_artists[song.artistId], m_titles[song.titleId]);
    return text;
}

std::span<const std::uint32_t> PreparedSongs::titleWordsOf(const PreparedSong &song) const
{
    const std::size_t end = m_titleWordEnds[song.titleId];
    const std::size_t start = song.titleId == 0 ? 0 : m_titleWordEnds[song.titleId - 1];
    return std::span(m_titleWords).subspan(start, end - start);
}

std::uint64_t bigramsOf(QStringView loweredText)
{
    // Multiplicative hashing (D. E. Knuth, "The Art of Computer Programming", volume 3, section 6.4).
    constexpr std::uint32_t MULTIPLIER = 2654435769U;
    constexpr int SIX_BITS = 32 - 6;
    std::uint64_t bigrams = 0;
    std::uint32_t pair = 0;
    for (qsizetype i = 0; i < loweredText.size(); ++i) {
        pair = pair << 16 | loweredText[i].unicode();
        if (i > 0)
            bigrams |= std::uint64_t{1} << (pair * MULTIPLIER >> SIX_BITS);
    }
    return bigrams;
}

} // namespace sonavo
