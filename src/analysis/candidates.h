#pragma once

#include "analysis/artist_index.h"
#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

/// Proposes, for a song of a bucket, the songs of that bucket that could match it.
///
/// # How a bucket is clustered fast, and why no match is missed
///
/// clusterSongs() takes a seed and compares it with the songs that are left, by songsMatch(). Comparing it
/// with all of them takes time quadratic in the size of the bucket: too long where a library has 100,000
/// songs without an artist, or a thousand for each second of playing time. So the work is cut twice. In both
/// places songs are left out only where a condition of songsMatch() is sure to fail; what remains is decided
/// by songsMatch() alone. Proposing too many costs time and never changes a result; proposing too few loses
/// duplicates.
///
/// 1. Candidates (this class). There are two indexes, and each alone finds every match:
///    - By title word. Matching songs share a word of at least MATCH_WORD_LENGTH characters, so each match
///      is in the list of one of the seed's words. Removed songs are dropped from a list when it is read.
///      Slow where nearly all titles share a word ("Track 0001").
///    - By artist (ArtistIndex). Matching songs have matching artists. These are found once for each artist
///      of the bucket, among the artists of about the same length: lengths that differ by more than the
///      distance that is allowed cannot match. Slow where most songs are by one artist, or by none.
///    The index with fewer songs to check is used. The constants behind that choice are estimates of cost:
///    any values give the same clusters.
///
/// 2. Quick tests (in songsMatch()). PreparedSong holds ids in place of texts and a few bits of each text:
///    - equal ids mean equal texts, whose similarity is 1;
///    - largestDistance() of two lengths is the edit distance beyond which a similarity is below its
///      threshold; a difference in length, or half the difference of two character bags, is never above the
///      distance (mayBeWithin()), and levenshteinDistance() gives up beyond that limit;
///    - a text contains another only if it has all of its bigrams.
///    They say "no" or "perhaps", never "yes", except for equal ids.
///
/// # Changing a rule
///
/// The thresholds can be changed freely: everything above is derived from the constants of matching.h. A new
/// condition, or a stricter one, needs no change here. Weakening the fourth condition (a shared word) breaks
/// the first index, and weakening the third (the artists) breaks the second: that index must then be adapted
/// or removed. tests/analysis/direct_analysis.cpp states the rule a second time without any index; the tests
/// and the fuzzer compare the program with it.
class CandidateIndex
{
public:
    /// @param songs must outlive the index
    explicit CandidateIndex(const PreparedSongs &songs);

    /// Replaces what the index holds.
    /// @param bucket each song once
    void build(std::span<const SongIndex> bucket);

    /// How many songs the bucket was built of.
    [[nodiscard]] std::size_t size() const { return m_bucket.size(); }
    [[nodiscard]] const PreparedSong &operator[](BucketPosition position) const { return m_bucket[position]; }

    /// Takes a song out of the bucket: it is no longer proposed.
    void remove(BucketPosition position) { m_isRemoved[position] = true; }
    [[nodiscard]] bool isRemoved(BucketPosition position) const { return m_isRemoved[position]; }

    /// All other songs of the bucket that match the seed and are not removed, each once, in no particular
    /// order. Songs that do not match may be among them.
    /// @return valid until the next call
    [[nodiscard]] std::span<const BucketPosition> candidatesFor(BucketPosition seed);

private:
    /// Part of m_entries: the songs whose titles hold one word.
    struct WordList
    {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    [[nodiscard]] std::size_t countByWords(const PreparedSong &seed) const;
    [[nodiscard]] std::size_t countByArtists(const PreparedSong &seed);
    void proposeByWords(BucketPosition seed);
    void proposeByArtists(BucketPosition seed);

    const PreparedSongs &m_songs;
    /// Contiguous copies, which are read faster than the scattered originals.
    std::vector<PreparedSong> m_bucket;
    std::vector<bool> m_isRemoved;
    /// By word id; empty for words that the bucket does not have.
    std::vector<WordList> m_wordLists;
    std::vector<std::uint32_t> m_bucketWords;
    std::vector<BucketPosition> m_entries;
    /// For each song the last query that it was proposed to.
    std::vector<std::uint32_t> m_lastQuery;
    std::uint32_t m_query = 0;
    ArtistIndex m_artists;
    /// Built only for a seed that has many songs to go through.
    bool m_hasArtists = false;
    std::vector<BucketPosition> m_candidates;
};

} // namespace sonavo
