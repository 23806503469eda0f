#include "analysis/prepared_songs.h"

#include "analysis/bounded_distance.h"
#include "analysis/normalization.h"
#include "analysis/similarity.h"

#include <algorithm>

namespace sonavo {
namespace {

std::uint64_t characterBit(char16_t character)
{
    // Latin letters, digits and the common marks have bits of their own, as far as there are bits.
    constexpr std::uint32_t BITS = 64;
    if (character >= u'a' && character <= u'z')
        return std::uint64_t{1} << (character - u'a');
    if (character >= u'0' && character <= u'9')
        return std::uint64_t{1} << (character - u'0' + 26);
    return std::uint64_t{1} << (36 + character % (BITS - 36));
}

TextOutline outlineOf(QStringView loweredText)
{
    // 32-bit FNV-1a over UTF-16 units (G. Fowler, L. C. Noll, K.-P. Vo, 1991).
    constexpr std::uint32_t FNV_OFFSET = 2166136261U;
    constexpr std::uint32_t FNV_PRIME = 16777619U;
    TextOutline outline;
    outline.length = static_cast<std::uint32_t>(loweredText.size());
    outline.hash = FNV_OFFSET;
    for (const QChar character : loweredText) {
        outline.characters |= characterBit(character.unicode());
        outline.hash = (outline.hash ^ character.unicode()) * FNV_PRIME;
    }
    return outline;
}

} // namespace

PreparedSongs::PreparedSongs(const QList<Song> &songs)
{
    m_songs.reserve(static_cast<std::size_t>(songs.size()));
    TextPool names;
    QString lowered;
    std::string normalized;
    std::string artistAndTitle;
    std::string artist;
    std::uint32_t artistNumber = 0;
    const QString *previousArtist = nullptr;
    names.reserve(m_songs.capacity());
    m_titles.reserve(m_songs.capacity());
    for (const Song &song : songs) {
        PreparedSong prepared;
        prepared.duration = song.duration;

        // Neighbours in a folder are mostly by one artist.
        if (!previousArtist || song.artist != *previousArtist) {
            previousArtist = &song.artist;
            lowerInto(lowered, song.artist);
            normalizeLoweredInto(artist, lowered);
            artistNumber = addArtist(artist);
        }
        prepared.artistNumber = artistNumber;
        artistAndTitle = artist;

        lowerInto(lowered, song.title);
        prepared.title = outlineOf(lowered);
        normalizeLoweredInto(normalized, lowered);
        prepared.titleNumber = addTitle(normalized);
        if (!artistAndTitle.empty() && !normalized.empty())
            artistAndTitle += ' ';
        artistAndTitle += normalized;
        prepared.artistAndTitleLength = static_cast<std::uint32_t>(artistAndTitle.size());
        prepared.bag = characterBag(artistAndTitle);

        lowerInto(lowered, song.name);
        prepared.name = outlineOf(lowered);
        normalizeLoweredInto(normalized, lowered);
        prepared.nameNumber = names.add(normalized);
        m_songs.push_back(prepared);
    }
}

std::uint32_t PreparedSongs::addArtist(std::string_view normalizedArtist)
{
    const std::uint32_t number = m_artists.add(normalizedArtist);
    if (number == m_artistBags.size())
        m_artistBags.push_back(characterBag(normalizedArtist));
    return number;
}

std::uint32_t PreparedSongs::addTitle(std::string_view normalizedTitle)
{
    const std::uint32_t number = m_titles.add(normalizedTitle);
    if (number < m_titleWordEnds.size())
        return number;

    const auto start = static_cast<std::ptrdiff_t>(m_titleWords.size());
    forEachWord(normalizedTitle, [this](std::string_view word) {
        if (word.size() >= MATCH_WORD_LENGTH)
            m_titleWords.push_back(m_words.add(word));
    });
    std::sort(m_titleWords.begin() + start, m_titleWords.end());
    m_titleWords.erase(std::unique(m_titleWords.begin() + start, m_titleWords.end()), m_titleWords.end());
    m_titleWordEnds.push_back(m_titleWords.size());
    return number;
}

std::span<const std::uint32_t> PreparedSongs::titleWords(const PreparedSong &song) const
{
    const std::size_t end = m_titleWordEnds[song.titleNumber];
    const std::size_t start = song.titleNumber == 0 ? 0 : m_titleWordEnds[song.titleNumber - 1];
    return std::span(m_titleWords).subspan(start, end - start);
}

} // namespace sonavo
