#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <limits>

namespace sonavo {

/// How a folder is enumerated.
struct FolderEnumeration
{
    enum class Packages
    {
        Enter,
        Skip
    };

    /// Whether to look inside folders that people see as one document, such as "Song.band".
    Packages packages = Packages::Skip;
    /// No more than this many entries of any one folder are read.
    std::size_t entriesPerFolder = std::numeric_limits<std::size_t>::max();
};

/// Calls `visit` with the path of every file and folder below a folder, folders before what they hold, the
/// entries of each folder in byte order of their names, until it returns false.
///
/// Left out are hidden entries (a leading dot) and names that are not valid UTF-8. Links are visited but
/// never followed, except when the given folder itself is one. What cannot be read, vanishes meanwhile, or
/// lies deeper than a path can say (PATH_MAX, 4096 bytes) contributes nothing. Any thread may call it.
void enumerateFolder(const QString &folder, const FolderEnumeration &options,
                     const std::function<bool(const QString &path)> &visit);

} // namespace sonavo
