#pragma once

#include "analysis/character_places.h"
#include "analysis/disjoint_grams.h"
#include "analysis/further_songs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sonavo {

/// The artists or the full texts of songs that are of one length, by song. Any thread may read it.
class FurtherTexts
{
public:
    using Position = FurtherSongs::Position;
    using Places = CharacterPlaces<char32_t>;

    /// A text of a song, as a whole or without a part.
    struct Text
    {
        Position song = 0;
        TrackNumber number = TrackNumber::Kept;
        Tail tail = Tail::Kept;
    };

    /// @param length characters of each text
    explicit FurtherTexts(std::size_t length)
        : m_length(length)
    {}

    [[nodiscard]] std::size_t length() const { return m_length; }
    [[nodiscard]] bool isEmpty() const { return m_texts.empty(); }
    /// @param text of the last song or of one behind it
    void add(Text text) { m_texts.push_back(text); }
    /// Indexes the texts, unless they are compared as fast one by one. To be called once all are added.
    /// @param least the similarity that will be asked for; see calculateSimilarity()
    /// @param charactersOf gives those of a Text
    template <typename CharactersOf>
    void place(double least, CharactersOf charactersOf)
    {
        constexpr std::size_t FEW = 256;
        if (m_texts.size() < FEW || m_length > LONGEST_PLACED)
            return;
        m_places.emplace().build(m_length, m_texts.size(), largestDistanceToSimilar(m_length, least),
                                 [&](std::size_t number) { return charactersOf(m_texts[number]); });
    }
    /// Takes the texts of a song out of the index. Must not overlap with any other call.
    void remove(Position song);

    /// Numbers count from 0, by song.
    [[nodiscard]] Position songOf(std::size_t number) const { return m_texts[number].song; }
    /// The first number of a song or of one behind it.
    [[nodiscard]] std::size_t firstNumberOf(Position song) const;
    /// Nothing where the texts that are similar to one of that length are not indexed.
    [[nodiscard]] const Places *placesFor(std::size_t otherLength) const
    {
        return m_places && otherLength <= LONGEST_PLACED ? &*m_places : nullptr;
    }

private:
    std::size_t m_length = 0;
    std::vector<Text> m_texts;
    std::optional<Places> m_places;
};

} // namespace sonavo
