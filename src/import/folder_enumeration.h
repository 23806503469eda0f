#pragma once

#include "import/regular_file.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

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

/// What is in a folder.
struct FolderEntries
{
    struct Entry
    {
        std::string name;
        bool isFolder;
    };

    QString path;
    /// In byte order of their names, without hidden ones (a leading dot).
    std::vector<Entry> entries;
};

/// Lists a folder. One that cannot be read, has vanished or has a path longer than PATH_MAX (4096 bytes) is
/// empty. Waits for the disk; any thread may call it.
/// @param maxEntries how many are read at most
/// @param answers incremented after every entry, if given
[[nodiscard]] FolderEntries readFolder(const QString &path, std::size_t maxEntries,
                                       ReadCounter *answers = nullptr);

/// The order in which folders and their entries are visited: depth-first, each folder before its entries. The
/// caller reads the folders; the walk itself never waits for the disk.
///
/// Names that are not valid UTF-8 are left out. Links are visited but not entered.
class FolderWalk
{
public:
    struct Step
    {
        QString path;
        /// Whether it is a folder to be entered next.
        bool isEntered = false;
    };

    explicit FolderWalk(const EnumerationOptions &options)
        : m_options(options)
    {}

    [[nodiscard]] const EnumerationOptions &options() const { return m_options; }

    /// The next steps go through this folder.
    void enter(FolderEntries folder) { m_folders.push_back({std::move(folder), 0}); }
    /// @return nothing at the end of all folders that were entered
    [[nodiscard]] std::optional<Step> next();

private:
    struct OpenFolder
    {
        FolderEntries folder;
        /// Index of the next entry.
        std::size_t next = 0;
    };

    const EnumerationOptions m_options;
    /// Folders can be nested deeper than recursion could follow.
    std::vector<OpenFolder> m_folders;
};

/// Calls `visit` with the path of every file and folder below a folder, in the order of a FolderWalk, until
/// it returns false. The folder itself may be a link. Waits for the disk; any thread may call it.
/// @param answers incremented after every entry that is read, if given
void enumerateFolder(const QString &folder, const EnumerationOptions &options,
                     const std::function<bool(const QString &path)> &visit, ReadCounter *answers = nullptr);

} // namespace sonavo
