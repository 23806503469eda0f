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
constexpr std::size_t PARTS_AT_A_TIME = 32;
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

/// The normalised texts of some neighbours, and the hashes of these texts and of paths.
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
        m_pathHashes.clear();
    }
    /// Artist, title and name of each song in turn.
    void add(std::string_view text)
    {
        m_characters += text;
        m_ends.push_back(m_characters.size());
        m_hashes.push_back(StringPool::hashOf(text));
    }
    void addPath(const QString &path) { m_pathHashes.push_back(::qHash(path)); }
    [[nodiscard]] SongIndex songCount() const { return static_cast<SongIndex>(m_pathHashes.size()); }
    [[nodiscard]] Text artistOf(SongIndex i) const { return at(std::size_t{i} * 3); }
    [[nodiscard]] Text titleOf(SongIndex i) const { return at(std::size_t{i} * 3 + 1); }
    [[nodiscard]] Text nameOf(SongIndex i) const { return at(std::size_t{i} * 3 + 2); }
    [[nodiscard]] std::size_t pathHashOf(SongIndex i) const { return m_pathHashes[i]; }

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
    std::vector<std::size_t> m_pathHashes;
};

/// The first song of each name, or of each path.
struct PreparedSongs::FirstSongs
{
    explicit FirstSongs(std::size_t most)
    {
        ids.reserve(most);
        songs.reserve(most);
    }

    /// @param isSame whether the song has the name or path of this other one
    template <typename IsSame>
    std::uint32_t idOf(std::size_t hash, SongIndex song, IsSame isSame)
    {
        const std::uint32_t id = ids.idOf(hash, [&](std::uint32_t other) { return isSame(songs[other]); });
        if (id == songs.size())
            songs.push_back(song);
        return id;
    }

    IdTable ids;
    std::vector<SongIndex> songs;
};

PreparedSongs::PreparedSongs(QList<Song> songs, const std::stop_token &stop)
    : m_songs(std::move(songs))
{
    const auto count = static_cast<std::size_t>(m_songs.size());
    m_prepared.resize(count);
    m_nameIds.reserve(count);
    m_pathIds.reserve(count);
    m_titles.reserve(count);
    // Neither names nor paths are needed again, so they are not kept.
    FirstSongs names(count);
    FirstSongs paths(count);

    // Normalising takes the longest and is done for a few at a time, so that their texts need little memory.
    std::vector<Texts> parts(PARTS_AT_A_TIME);
    for (std::size_t begin = 0; begin < count && !stop.stop_requested();) {
        const std::size_t partCount =
            std::min(PARTS_AT_A_TIME, (count - begin + SONGS_A_PART - 1) / SONGS_A_PART);
        forEachInParallel(partCount, 1, stop, [&](std::size_t i) {
            prepare(static_cast<SongIndex>(begin + i * SONGS_A_PART), parts[i]);
        });
        if (stop.stop_requested())
            return;
        const auto ready = std::span<const Texts>(parts).first(partCount);
        forEachInParallel(3, 1, {}, [&](std::size_t i) {
            if (i == 0)
                addArtistsAndTitles(ready);
            else if (i == 1)
                addNames(ready, names);
            else
                addPaths(ready, paths);
        });
        begin += partCount * SONGS_A_PART;
    }
    m_artists.finish();
    m_titles.finish();
    m_wordCount = std::exchange(m_words, {}).size();
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
        texts.add(text);
        texts.addPath(song.path);

        m_prepared[index] = prepared;
    }
}

void PreparedSongs::addNames(std::span<const Texts> parts, FirstSongs &names)
{
    for (const Texts &part : parts) {
        for (SongIndex i = 0; i < part.songCount(); ++i) {
            if (i + SONGS_AHEAD < part.songCount())
                names.ids.prefetch(part.nameOf(i + SONGS_AHEAD).hash);
            const SongIndex index = part.begin + i;
            const Texts::Text text = part.nameOf(i);
            const auto isSame = [&](SongIndex other) {
                const QString &name = song(other).name;
                return name == song(index).name || normalizeString(name) == text.characters;
            };
            m_nameIds.push_back(names.idOf(text.hash, index, isSame));
        }
    }
}

void PreparedSongs::addPaths(std::span<const Texts> parts, FirstSongs &paths)
{
    for (const Texts &part : parts) {
        for (SongIndex i = 0; i < part.songCount(); ++i) {
            if (i + SONGS_AHEAD < part.songCount())
                paths.ids.prefetch(part.pathHashOf(i + SONGS_AHEAD));
            const SongIndex index = part.begin + i;
            const auto isSame = [&](SongIndex other) { return song(other).path == song(index).path; };
            m_pathIds.push_back(paths.idOf(part.pathHashOf(i), index, isSame));
        }
    }
}

void PreparedSongs::addArtistsAndTitles(std::span<const Texts> parts)
{
    for (const Texts &part : parts) {
        for (SongIndex i = 0; i < part.songCount(); ++i) {
            if (i + SONGS_AHEAD < part.songCount())
                m_titles.prefetch(part.titleOf(i + SONGS_AHEAD).hash);
            PreparedSong &song = m_prepared[part.begin + i];
            const Texts::Text artist = part.artistOf(i);
            const bool isSameArtist = i > 0 && artist.characters == part.artistOf(i - 1).characters;
            song.artistId = isSameArtist ? m_prepared[part.begin + i - 1].artistId
                                         : m_artists.add(artist.characters, artist.hash);
            const Texts::Text title = part.titleOf(i);
            song.titleId = addTitle(title.characters, title.hash);
        }
    }
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
