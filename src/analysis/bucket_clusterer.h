#pragma once

#include "analysis/prepared_songs.h"
#include "model/song.h"

#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sonavo {

/// Clusters songs exactly as clusterSongs() does, in a fraction of the time: a seed is compared only with the
/// songs that share a word with its title, and a comparison looks at lengths and outlines before it looks at
/// texts.
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
    /// A song's place in the bucket.
    using Place = std::uint32_t;

    /// The places that still wait in the bucket and whose titles hold one word.
    struct WordList
    {
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };

    /// The song to which others are compared, with texts that most comparisons do not need.
    struct Seed
    {
        std::size_t position;
        PreparedSong song;
        std::optional<QString> loweredTitle = std::nullopt;
        std::optional<QString> loweredName = std::nullopt;
        std::string artistAndTitle = {};
    };

    void makeWordLists(const Positions &bucket);
    void forgetWordLists();
    void gatherCandidates(Place seed);

    [[nodiscard]] bool matches(Seed &seed, std::size_t position, const PreparedSong &candidate);
    [[nodiscard]] bool artistsMatch(const PreparedSong &seed, const PreparedSong &candidate) const;
    [[nodiscard]] bool titlesMatch(Seed &seed, std::size_t position, const PreparedSong &candidate);
    [[nodiscard]] bool areArtistAndTitleSimilar(Seed &seed, const PreparedSong &candidate);
    void joinArtistAndTitle(std::string &result, const PreparedSong &song) const;
    [[nodiscard]] const Song &songAt(std::size_t position) const;

    const QList<Song> &m_songs;
    const PreparedSongs &m_prepared;
    /// For each length of the longer text the largest distance that still counts as similar.
    std::vector<std::size_t> m_titleLimits;
    std::vector<std::size_t> m_artistLimits;

    // Of the bucket at hand; kept for their memory.
    std::vector<PreparedSong> m_bucket;
    std::vector<bool> m_isPlaced;
    std::vector<Place> m_lastSeed;
    std::vector<Place> m_candidates;
    std::vector<WordList> m_wordLists;
    std::vector<std::uint32_t> m_usedWords;
    std::vector<Place> m_places;
    std::string m_artistAndTitle;
    QString m_lowered;
};

} // namespace sonavo
