#pragma once

#include "model/song.h"

#include <QList>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace sonavo {

/// What is special about a generated library.
enum class LibraryKind
{
    /// Nothing; close to real ones.
    Realistic,
    /// No file names an artist, and every title is "Track" and a number.
    NumberedTracks,
    /// Every file names the same artist.
    OneArtist,
    /// All playing times lie within the same ten seconds.
    TenSeconds,
};

/// How files are named.
enum class NameStyle
{
    /// Each album, and each copy, in one of the styles below.
    Mixed,
    /// Artist - Title
    ArtistTitle,
    /// 01 - Title
    NumberHyphenTitle,
    /// 01 Title
    NumberTitle,
    /// Artist - Album - 01 - Title
    ArtistAlbumNumberTitle,
    /// Artist_-_Title
    Underscores,
    /// ARTIST - TITLE
    UpperCase,
    /// Artist - Title (1)
    Numbered,
    /// Artist - Title copy
    Copy,
    /// Artist - Title (Remastered)
    Remastered,
};

struct LibraryPlan
{
    std::size_t songs = 0;
    LibraryKind kind = LibraryKind::Realistic;
    /// How songs of a library of several artists are named.
    NameStyle style = NameStyle::Mixed;
    /// The folder that holds the library, absolute.
    QString root = QStringLiteral("/music");
    /// Paths are padded to about this many bytes.
    qsizetype pathLength = 0;
    std::uint64_t seed = 1;
};

/// Generates a library as users have them: artists with a few albums or many, titles in which some words are
/// far more common than others, playing times around four minutes. One song in seven has one to three copies
/// elsewhere that differ in name, type and size, and by up to nine seconds in playing time.
///
/// The same plan gives the same library on every machine.
/// @return songs with distinct ids and paths, in the order in which a scan of the root would find them;
///     artist and title are what a scan reads from the file name
[[nodiscard]] QList<Song> generateLibrary(const LibraryPlan &plan);

} // namespace sonavo
