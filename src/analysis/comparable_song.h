#pragma once

#include "model/song.h"

#include <QString>

#include <string>
#include <vector>

namespace sonavo {

/// What the comparison of two songs needs of each of them, computed once: a song is compared many times.
struct ComparableSong
{
    explicit ComparableSong(const Song &song);

    /// Seconds.
    double duration;
    QString loweredTitle;
    QString loweredName;
    std::string normalizedArtist;
    std::string normalizedTitle;
    /// The normalised form of artist and title together.
    std::string normalizedArtistAndTitle;
    /// The title's words of at least MATCH_WORD_LENGTH characters, sorted, each once.
    std::vector<std::string> titleWords;
};

/// songsMatch() on prepared songs.
[[nodiscard]] bool songsMatch(const ComparableSong &seed, const ComparableSong &candidate);

} // namespace sonavo
