#pragma once

#include "analysis/artist_index.h"
#include "analysis/prepared_songs.h"
#include "model/song.h"

#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Clusters songs exactly as clusterSongs() does, in a fraction of the time: a seed is compared only with the
/// songs that share a word with its title or have a similar artist, and a comparison looks at lengths and
/// outlines before it looks at texts.
class BucketClusterer
{
public:
    /// Positions in the list of songs, ascending.
    using Positions = std::vector<std::size_t>;

    /// @param songs and prepared the same songs; both must outlive the clusterer
    BucketClusterer(const QList<Song> &songs, const PreparedSongs &prepared);

    /// @param bucket what to cluster
    /// @return clusters of at least two positions in the order of their seeds, seed first
    [[nodiscard]] std::vector<Positions> clustersOf(const Positions &bucket);

private:
    using Place = ArtistIndex::Place;

    /// The places that still wait in the bucket and whose titles hold one word.
    struct WordList
    {
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };

    /// Texts of a song of the bucket that most comparisons do not need; null until one does.
    struct LoweredTexts
    {
        QString title;
        QString name;
    };

    void makeWordLists(const Positions &bucket);
    void forgetWordLists();
    /// Gathers the unplaced songs that share a title word with a seed, have a similar artist and are about as
    /// long. They are looked for by their words or by their artists, whichever are fewer.
    void gatherCandidates(Place seed);
    [[nodiscard]] std::size_t countByWords(Place seed) const;
    [[nodiscard]] std::size_t countByArtists(Place seed);
    void gatherByWords(Place seed);
    void gatherByArtists(Place seed);
    [[nodiscard]] bool shareTitleWord(const PreparedSong &a, const PreparedSong &b) const;

    [[nodiscard]] bool titlesMatch(const Positions &bucket, Place seed, Place candidate);
    [[nodiscard]] bool areArtistAndTitleSimilar(Place seed, Place candidate);
    [[nodiscard]] const QString &loweredTitle(const Positions &bucket, Place place);
    [[nodiscard]] const QString &loweredName(const Positions &bucket, Place place);
    /// @param buffer for a text that has to be put together; the result can be a view of it
    [[nodiscard]] std::string_view artistAndTitle(const PreparedSong &song, std::string &buffer) const;
    [[nodiscard]] const Song &songAt(std::size_t position) const;

    const QList<Song> &m_songs;
    const PreparedSongs &m_prepared;
    /// For each length of the longer text the largest distance that still counts as similar.
    std::vector<std::size_t> m_titleLimits;

    // Of the bucket at hand; kept for their memory.
    std::vector<PreparedSong> m_bucket;
    std::vector<LoweredTexts> m_lowered;
    std::vector<bool> m_isPlaced;
    std::vector<Place> m_lastSeed;
    std::vector<Place> m_candidates;
    std::vector<WordList> m_wordLists;
    std::vector<std::uint32_t> m_usedWords;
    std::vector<Place> m_places;
    ArtistIndex m_artistIndex;
    bool m_isArtistIndexBuilt = false;
    std::string m_seedText;
    std::string m_candidateText;
};

} // namespace sonavo
