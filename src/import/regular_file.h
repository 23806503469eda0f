#pragma once

#include "model/file_note.h"

#include <QString>

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <span>

namespace sonavo {

/// Counts the reads of a file that have returned. While it stands still during a read, the disk may be
/// hanging.
using ReadCounter = std::atomic<quint64>;

/// What a file system reports of a file that is open. Equal ones show the same file with the same content,
/// as far as the file system can tell.
struct FileVersion
{
    FileNote note = {};
    /// Time of the last change of content, names, owner or permissions, in nanoseconds since the epoch.
    qint64 changed = 0;

    friend bool operator==(const FileVersion &, const FileVersion &) = default;
};

/// A regular file, open for reading. Opening follows links, never waits for the writer of a pipe and never
/// touches a device. Any thread may use it, but only one at a time.
class RegularFile
{
public:
    /// @param counter incremented after every read, if given; must outlive the file
    explicit RegularFile(QString path, ReadCounter *counter = nullptr);
    ~RegularFile();
    Q_DISABLE_COPY_MOVE(RegularFile)

    /// Whether there is a readable regular file at the path; nothing below may be called when there is not.
    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    [[nodiscard]] const QString &path() const { return m_path; }

    /// What the file was when it was opened.
    [[nodiscard]] const FileVersion &version() const { return m_version; }
    /// Size in bytes when the file was opened.
    [[nodiscard]] qint64 size() const { return m_version.note.size; }

    /// Bytes of the directory entry when the file was opened: as size(), but a link counts with its own few.
    [[nodiscard]] qint64 entrySize() const { return m_entrySize; }

    /// Waits for the disk.
    /// @param offset bytes from the start of the file
    /// @return bytes read, which can be fewer than asked for; 0 at the end, negative on an error
    [[nodiscard]] ssize_t read(std::span<std::uint8_t> target, qint64 offset) const;

private:
    void close();

    const QString m_path;
    ReadCounter *const m_counter;
    int m_descriptor = -1;
    FileVersion m_version;
    qint64 m_entrySize = 0;
};

} // namespace sonavo
