#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <limits>

namespace sonavo {

struct EnumerationOptions
{
    enum class Packages
    {
        Enter,
        Skip
    };

    /// Whether to enter packages: folders that desktops show as one document, such as "Song.band".
    Packages packages = Packages::Skip;
    /// How many entries of each folder that are not left out are read at most, in the order in which the file
    /// system lists them.
    std::size_t maxEntriesPerFolder = std::numeric_limits<std::size_t>::max();
};

/// Calls `visit` with the path of every file and folder below a folder, depth-first, the entries of each
/// folder in byte order of their names, until it returns false.
///
/// Hidden entries (a leading dot) and names that are not valid UTF-8 are left out. Links are visited but not
/// followed, except when the given folder itself is one. Folders that cannot be read, vanish meanwhile, or
/// have a path longer than PATH_MAX (4096 bytes) contribute nothing. Waits for the disk; any thread may call
/// it.
void enumerateFolder(const QString &folder, const EnumerationOptions &options,
                     const std::function<bool(const QString &path)> &visit);

} // namespace sonavo
