#pragma once

#include "analysis/artist_grams.h"
#include "analysis/artist_index.h"
#include "analysis/full_texts.h"
#include "analysis/prepared_songs.h"
#include "analysis/text_groups.h"

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
/// 1. Candidates (this class). Matching songs play for about as long. The bucket is sorted by playing time,
///    so that they are a window of neighbours. Of the songs in it, one of four proposes, each of which finds
///    every match alone:
///    - The title words. Matching songs share a word of at least MATCH_WORD_LENGTH characters, so each match
///      is in the list of one of the seed's words. Slow where nearly all titles share a word ("Track 0001").
///    - The artists (ArtistIndex). Matching songs have matching artists. Slow where most songs are by one
///      artist, or by none, or where there are very many artists.
///    - Parts of the artists (ArtistGrams), where there are very many artists.
///    - The texts that the second condition looks at (FullTexts), where most artists are similar.
///    - The window itself, less the songs whose artists have too few pairs of characters in common.
///    Of the artists' songs and of the window, songs are left out whose titles, file names and full texts are
///    all too different (mayBeSimilar()).
///    The one with the fewest songs to check is used. The constants behind that choice are estimates of cost:
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
/// condition, or a stricter one, needs no change here. Weakening the first condition (the durations) breaks
/// the windows, the second (the texts) mayBeSimilar(), the third (the artists) the artists, and the fourth (a
/// shared word) the words: what is broken must then be adapted or removed. tests/analysis/direct_analysis.cpp
/// states the rule a second time without any index; the tests and the fuzzer compare the program with it.
class CandidateIndex
{
public:
    /// What one thread needs to ask.
    class Query
    {
    public:
        /// The candidates of one of the seeds that were asked for, by its place among them.
        [[nodiscard]] std::span<const BucketPosition> candidatesOf(std::size_t seed) const
        {
            return m_candidates[seed];
        }

    private:
        friend class CandidateIndex;

        /// By seed; those of former seeds are kept for their memory.
        std::vector<std::vector<BucketPosition>> m_candidates;
        std::vector<SongSearch> m_searches;
        /// For each song the last seed that it was proposed to, as a count.
        std::vector<std::uint32_t> m_lastSeeds;
        std::uint32_t m_seedCount = 0;
        ArtistIndex::Query m_artists;
    };

    /// @param songs must outlive the index
    explicit CandidateIndex(const PreparedSongs &songs);

    /// Replaces what the index holds, and removes nothing yet.
    /// @param bucket each song once, in any order
    void build(std::span<const SongIndex> bucket);

    /// How many songs the bucket was built of.
    [[nodiscard]] std::size_t size() const { return m_bucket.size(); }
    [[nodiscard]] const PreparedSong &operator[](BucketPosition position) const { return m_bucket[position]; }
    /// The positions of the songs in the order in which they were given.
    [[nodiscard]] std::span<const BucketPosition> order() const { return m_order; }

    /// Takes a song out of the bucket: it is no longer proposed. Must not overlap with findCandidates().
    void remove(BucketPosition position);
    [[nodiscard]] bool isRemoved(BucketPosition position) const { return m_isRemoved[position] != 0; }

    /// Finds for each seed all other songs of the bucket that match it and are not removed, each once, in no
    /// particular order. Songs that do not match may be among them. Several threads may ask at a time, each
    /// with a query of its own, which it keeps from one call to the next and which then holds the answer. In
    /// large buckets, several seeds together take less time than one after the other.
    void findCandidates(std::span<const BucketPosition> seeds, Query &query) const;

private:
    /// Positions from `begin` to before `end`.
    struct Window
    {
        BucketPosition begin = 0;
        BucketPosition end = 0;
    };
    /// Part of m_entries: the songs whose titles hold one word.
    struct WordList
    {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    /// PreparedSong::fullPairs, titleBigrams and nameBigrams.
    struct TextBits
    {
        std::uint64_t full = 0;
        std::uint64_t title = 0;
        std::uint64_t name = 0;
    };

    /// A quick test of the second condition of songsMatch().
    /// @param limit the most edits between the full texts
    [[nodiscard]] static bool mayBeSimilar(const TextBits &a, const TextBits &b, std::size_t limit);
    /// The most edits between the full text of a song and one that is similar.
    [[nodiscard]] std::size_t largestFullDistance(BucketPosition seed) const;
    void sort(std::span<const SongIndex> bucket);
    void listWords();
    /// Whether texts tell more songs apart than artists do, where those tell few.
    [[nodiscard]] bool areTextsMoreDistinct() const;
    [[nodiscard]] Window windowOf(const PreparedSong &seed) const;
    [[nodiscard]] std::span<const BucketPosition> songsWith(std::uint32_t word, Window window) const;
    [[nodiscard]] std::size_t countByWords(const PreparedSong &seed, Window window) const;
    using Candidates = std::vector<BucketPosition>;
    /// @return false if the seed is to be looked for together with others
    [[nodiscard]] bool propose(BucketPosition seed, Query &query, Candidates &candidates) const;
    void proposeByWords(BucketPosition seed, Window window, Query &query, Candidates &candidates) const;
    void proposeWindow(BucketPosition seed, Window window, Candidates &candidates) const;
    [[nodiscard]] bool proposeByArtists(BucketPosition seed, Window window, std::size_t most, Query &query,
                                        Candidates &candidates) const;
    /// Drops the seed itself, songs that are removed, and all but one of the same.
    void dropRepeated(BucketPosition seed, Query &query, Candidates &candidates) const;

    const PreparedSongs &m_songs;
    /// By playing time where that differs by more than matching songs may, else in the order given.
    /// Contiguous copies, which are read faster than the scattered originals.
    std::vector<PreparedSong> m_bucket;
    std::vector<BucketPosition> m_order;
    /// PreparedSong::artistPairs of each song: apart from the rest, to be read fast.
    std::vector<std::uint64_t> m_artistPairs;
    std::uint32_t m_longestArtist = 0;
    /// The same for what the second condition of songsMatch() looks at.
    std::vector<TextBits> m_texts;
    bool m_isSorted = false;
    std::vector<char> m_isRemoved;
    /// By word id; empty for words that the bucket does not have.
    std::vector<WordList> m_wordLists;
    std::vector<std::uint32_t> m_bucketWords;
    std::vector<BucketPosition> m_entries;
    /// Built only where a seed can have many songs to go through.
    ArtistIndex m_artists;
    bool m_hasArtists = false;
    /// Built only where that can take long and the artists are many.
    ArtistGrams m_grams;
    bool m_hasGrams = false;
    /// Built instead where most artists are similar and few texts are.
    FullTexts m_fullTexts;
    bool m_hasFullTexts = false;
};

} // namespace sonavo
