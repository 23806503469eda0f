#include "analysis/prepared_songs.h"

#include "analysis/distance.h"
#include "analysis/id_table.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"
#include "analysis/parallel.h"

#include <QHashFunctions>

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

constexpr std::size_t SONGS_A_PART = 1024;
constexpr std::size_t PARTS_AT_A_TIME = 16;
/// How many songs before it is asked for, an entry of a table is fetched from memory.
constexpr SongIndex SONGS_AHEAD = 8;

/// As normalising "artist - title" would give it.
void joinInto(std::string &result, std::string_view artist, std::string_view title)
{
    result = artist;
    if (!artist.empty() && !title.empty())
        result += ' ';
    result += title;
}

} // namespace

/// The normalised artists and titles of some neighbours, with their hashes.
struct PreparedSongs::Texts
{
    struct Text
    {
        std::string_view characters;
        std::size_t hash = 0;
    };

    void clear(SongIndex newBegin)
    {
        begin = newBegin;
        m_characters.clear();
        m_ends.clear();
        m_hashes.clear();
    }
    /// Artist and title of each song in turn.
    void add(std::string_view text)
    {
        m_characters += text;
        m_ends.push_back(m_characters.size());
        m_hashes.push_back(StringPool::hashOf(text));
    }
    [[nodiscard]] SongIndex songCount() const { return static_cast<SongIndex>(m_ends.size() / 2); }
    [[nodiscard]] Text artistOf(SongIndex i) const { return at(std::size_t{i} * 2); }
    [[nodiscard]] Text titleOf(SongIndex i) const { return at(std::size_t{i} * 2 + 1); }

    /// The first of them.
    SongIndex begin = 0;

private:
    [[nodiscard]] Text at(std::size_t i) const
    {
        const std::size_t start = i == 0 ? 0 : m_ends[i - 1];
        return {std::string_view(m_characters).substr(start, m_ends[i] - start), m_hashes[i]};
    }

    std::string m_characters;
    std::vector<std::size_t> m_ends;
    std::vector<std::size_t> m_hashes;
};

PreparedSongs::PreparedSongs(QList<Song> songs, const std::stop_token &stop)
    : m_songs(std::move(songs))
{
    const auto count = static_cast<std::size_t>(m_songs.size());
    m_prepared.resize(count);
    m_nameIds.resize(count);
    m_pathIds.resize(count);
    m_titles.reserve(count);
    m_titleWordEnds.reserve(count);
    prepareAll(stop);
    if (stop.stop_requested())
        return;
    m_artists.finish();
    m_titles.finish();
    m_wordCount = std::exchange(m_words, {}).size();
    identifyNamesAndPaths();
}

void PreparedSongs::prepareAll(const std::stop_token &stop)
{
    // A few at a time, so that their texts need little memory. While some are normalised on all cores, one
    // gives ids to the texts before.
    std::vector<Texts> ready;
    std::vector<Texts> next;
    const auto addReady = [&] {
        for (const Texts &texts : ready)
            addArtistsAndTitles(texts);
    };
    for (std::size_t begin = 0; begin < size(); begin += PARTS_AT_A_TIME * SONGS_A_PART) {
        const std::size_t left = (size() - begin + SONGS_A_PART - 1) / SONGS_A_PART;
        next.resize(std::min(PARTS_AT_A_TIME, left));
        const bool isDone = forEachInParallel(1 + next.size(), 1, stop, [&](std::size_t i) {
            if (i == 0)
                addReady();
            else
                prepare(static_cast<SongIndex>(begin + (i - 1) * SONGS_A_PART), next[i - 1]);
        });
        if (!isDone)
            return;
        ready.swap(next);
    }
    addReady();
}

void PreparedSongs::prepare(SongIndex begin, Texts &texts)
{
    texts.clear(begin);
    QString lowered;
    std::string artist;
    std::string title;
    std::string text;
    PreparedSong prepared;
    const QString *previousArtist = nullptr;
    const std::size_t end = std::min(begin + SONGS_A_PART, size());
    for (SongIndex index = begin; index < end; ++index) {
        const Song &song = this->song(index);
        prepared.index = index;
        prepared.duration = song.duration;
        m_pathIds[index] = static_cast<std::uint32_t>(::qHash(song.path));

        // Neighbours in a folder are mostly by one artist.
        if (!previousArtist || song.artist != *previousArtist) {
            previousArtist = &song.artist;
            artist = normalizeString(song.artist);
            prepared.artistLength = static_cast<std::uint32_t>(artist.size());
            prepared.artistBag = characterBag(artist);
            prepared.artistPairs = characterPairs(artist);
        }
        texts.add(artist);

        lowerInto(lowered, song.title);
        prepared.titleLength = static_cast<std::uint32_t>(lowered.size());
        prepared.titleBigrams = bigramsOf(lowered);
        normalizeLoweredInto(title, lowered);
        texts.add(title);

        joinInto(text, artist, title);
        prepared.fullLength = static_cast<std::uint32_t>(text.size());
        prepared.fullBag = characterBag(text);
        prepared.fullPairs = characterPairs(text);

        lowerInto(lowered, song.name);
        prepared.nameLength = static_cast<std::uint32_t>(lowered.size());
        prepared.nameBigrams = bigramsOf(lowered);
        normalizeLoweredInto(text, lowered);
        m_nameIds[index] = static_cast<std::uint32_t>(std::hash<std::string>{}(text));

        m_prepared[index] = prepared;
    }
}

void PreparedSongs::addArtistsAndTitles(const Texts &texts)
{
    for (SongIndex i = 0; i < texts.songCount(); ++i) {
        if (i + SONGS_AHEAD < texts.songCount())
            m_titles.prefetch(texts.titleOf(i + SONGS_AHEAD).hash);
        PreparedSong &song = m_prepared[texts.begin + i];
        const Texts::Text artist = texts.artistOf(i);
        const bool isSameArtist = i > 0 && artist.characters == texts.artistOf(i - 1).characters;
        song.artistId = isSameArtist ? m_prepared[texts.begin + i - 1].artistId
                                     : m_artists.add(artist.characters, artist.hash);
        const Texts::Text title = texts.titleOf(i);
        song.titleId = addTitle(title.characters, title.hash);
    }
}

void PreparedSongs::identifyNamesAndPaths()
{
    const auto isSameName = [this](SongIndex a, SongIndex b) {
        const QString &nameA = song(a).name;
        const QString &nameB = song(b).name;
        return nameA == nameB || normalizeString(nameA) == normalizeString(nameB);
    };
    const auto isSamePath = [this](SongIndex a, SongIndex b) { return song(a).path == song(b).path; };
    forEachInParallel(2, 1, {}, [&](std::size_t i) {
        if (i == 0)
            replaceByIds(m_nameIds, isSameName);
        else
            replaceByIds(m_pathIds, isSamePath);
    });
}

std::uint32_t PreparedSongs::addTitle(std::string_view normalizedTitle, std::size_t hash)
{
    const std::uint32_t id = m_titles.add(normalizedTitle, hash);
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
