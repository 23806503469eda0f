#pragma once

#include "import/regular_file.h"
#include "import/sound.h"

#include <QHash>
#include <QString>

#include <mutex>
#include <optional>

namespace sonavo {

/// What the content of files told before, so that the next scan reads only the files that have changed. About
/// 100 bytes for each file, in memory only. Any thread may call it.
class KnownDurations
{
public:
    /// How many files are remembered at most; further ones are not.
    static constexpr qsizetype MAX_FILES = 500'000;

    /// What is remembered of the file at this path in this version.
    [[nodiscard]] std::optional<Sound> find(const QString &path, const FileVersion &version);

    /// Remembers what a file has told, unless it was modified less than three seconds before it was
    /// opened: file systems keep times as coarse as two seconds, so that the file could change again without
    /// a trace.
    /// @param opened nanoseconds since the epoch, before anything was read
    void add(const QString &path, const FileVersion &version, qint64 opened, const Sound &sound);

    /// Forgets the files that were neither found nor added since the last call.
    void forgetUnused();

private:
    struct Entry
    {
        FileVersion version;
        Sound sound;
        bool isUsed;
    };

    std::mutex m_mutex;
    /// By the hash of the path. Another path of the same hash and version is the same file by another name.
    QHash<size_t, Entry> m_entries;
};

} // namespace sonavo
