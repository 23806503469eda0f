#pragma once

#include "analysis/further_songs.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// What an index finds a song by when looking further, as hashes. Holds one song at a time, so each thread
/// needs its own.
///
/// Songs of different numbers do not match, so keys are combined with the numbers of the title: a song that
/// has none is in the index with its bare keys, another one with each key in the scope of each of its
/// numbers, and in one scope that all these songs share. A song with many numbers is in the index like one
/// without, which every song is compared with, to limit the memory that it takes.
class FurtherKeys
{
public:
    using Hash = std::uint64_t;

    static constexpr std::size_t GRAM_LENGTH = 4;

    /// Replaces the song that is held.
    /// @param number Kept to compare it with songs that have a track number like it, Dropped to compare it
    /// with those that have none
    /// @param family the same for songs with similar artists; all scopes are within it
    void read(const FurtherSong &song, TrackNumber number, std::uint32_t family);

    /// The runs of GRAM_LENGTH characters of the full text, with a blank at either end, in order.
    [[nodiscard]] const std::vector<Hash> &grams() const { return m_grams; }
    /// How many of them, from the first on, are also those of the full text without its tail.
    [[nodiscard]] std::size_t gramsBeforeTail() const { return m_gramsBeforeTail; }
    /// Those that lie in the title without its track number, the blank behind it included.
    [[nodiscard]] std::span<const Hash> gramsOfTitle() const
    {
        return std::span(m_grams).last(m_gramsOfTitle);
    }
    /// The words of the title, and what else forEachTitleWord() visits; in no particular order.
    [[nodiscard]] const std::vector<Hash> &words() const { return m_words; }
    /// What forEachTitleWord() visits.
    [[nodiscard]] const std::vector<Hash> &titleWords() const { return m_titleWords; }
    /// The words of the title but for the track number.
    [[nodiscard]] std::span<const Hash> wordsBehindNumber() const
    {
        return std::span(m_words).first(m_rowOfWords).subspan(m_song->isNumbered() ? 1 : 0);
    }

    /// A key in a scope.
    [[nodiscard]] static Hash inScope(Hash key, Hash scope) { return key ^ scope; }
    /// The scopes in which the song is in the index.
    [[nodiscard]] const std::vector<Hash> &scopes() const { return m_scopes; }
    /// The scopes in which those are that have matching numbers.
    [[nodiscard]] const std::vector<Hash> &scopesOfMatches() const { return m_scopesOfMatches; }

    /// The scope of keys that are in no other scope of a family.
    [[nodiscard]] static Hash scopeOf(std::uint32_t family);
    /// The title of a song without its track number. In no scope.
    [[nodiscard]] static Hash titleKeyOf(const FurtherSong &song);
    /// The same for each row of words of the held song's title, itself included.
    [[nodiscard]] const std::vector<Hash> &titlesInTitle();

private:
    void readGrams(TrackNumber number);
    void readWords();
    void readScopes(TrackNumber number, std::uint32_t family);

    const FurtherSong *m_song = nullptr;
    std::u32string m_title;
    std::vector<Hash> m_grams;
    std::size_t m_gramsBeforeTail = 0;
    std::size_t m_gramsOfTitle = 0;
    std::vector<Hash> m_words;
    /// How many of m_words, from the first on, are words of the title.
    std::size_t m_rowOfWords = 0;
    std::vector<Hash> m_titleWords;
    std::vector<Hash> m_scopes;
    std::vector<Hash> m_scopesOfMatches;
    std::vector<Hash> m_titles;
    /// Kept for its memory.
    std::u32string m_text;
};

} // namespace sonavo
