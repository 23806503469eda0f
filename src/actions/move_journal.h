#pragma once

#include "actions/file_snapshot.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace sonavo {

/// What a move makes on its way and would leave behind if the process ended before its next step.
struct Leftover
{
    enum class Kind : quint8
    {
        /// A copy on another disk, at `path` until it is complete, then at `finalPath`.
        Copy,
        /// An empty file that takes the new name at `path` until the source is renamed over it.
        Placeholder,
        /// A hard link at `path` to the source.
        SecondName,
        /// A symbolic link at `path` that takes the place of the one at `source`; `content` is what it says.
        NewLink,
        /// The source itself, renamed to `path` to be looked at before it is removed.
        PrivateName,
        /// An info file at `path` with `content`, for the file that goes to `finalPath` or comes back from
        /// there.
        Note,
        /// The last line of the file at `path`, from `offset` on: `content`, about the file that goes to
        /// `finalPath` or comes back from there. With offset 0, all of the file.
        Line,
    };
    Kind kind = Kind::Copy;
    // Paths are in the file system's encoding; relative ones are to the current folder.
    QByteArray path;
    QByteArray finalPath = {};
    /// The file that is moved, where it was before this step, and what it was.
    QByteArray source = {};
    std::optional<FileSnapshot> sourceSnapshot = {};
    QByteArray content = {};
    qint64 offset = 0;
};

/// Records what a move is about to make, before it is made, so that the next start can remove what is left
/// over when the process was killed; see cleanUpUnfinishedMoves().
///
/// A journal is a file of its own in the folder, made at the first record, locked by its process (flock) and
/// removed with the object. A record is one write(), which outlives the process; none is flushed to the disk,
/// as this would take longer than most moves. When no record is open, the file is empty.
///
/// A record that cannot be written, for instance because the disk is full, is left out and the move goes on:
/// a leftover is litter, a clean-up that is refused is a fault. One thread at a time may use a journal.
class MoveJournal
{
public:
    /// A record that is open; it ends with the object.
    class Entry
    {
    public:
        /// Records nothing.
        Entry() = default;
        Entry(Entry &&other) noexcept;
        Entry &operator=(Entry &&other) noexcept;
        Entry(const Entry &) = delete;
        Entry &operator=(const Entry &) = delete;
        ~Entry();

        /// It is at its path now, and this is what it is. To be called again when a copy is complete, before
        /// it gets its final name: there, only what is still the same can be removed.
        void made(const FileSnapshot &snapshot);
        /// It may be left over although the process goes on: the record stays for the next start.
        void keep();

    private:
        friend class MoveJournal;
        Entry(MoveJournal *journal, quint64 id);
        MoveJournal *m_journal = nullptr;
        quint64 m_id = 0;
    };

    /// A record whose process ended before it did.
    struct Unfinished
    {
        Entry entry;
        Leftover leftover;
        /// What it was when it had been made; nothing if the process ended before.
        std::optional<FileSnapshot> made;
        /// Nanoseconds since the epoch, by this machine's clock.
        qint64 recorded = 0;
    };

    /// @param folder is made when it is needed; without one, nothing is recorded
    explicit MoveJournal(QString folder);
    ~MoveJournal();
    Q_DISABLE_COPY_MOVE(MoveJournal)

    /// Must outlive the entry.
    [[nodiscard]] Entry record(const Leftover &leftover);
    /// The same for a journal that may be missing.
    [[nodiscard]] static Entry recordIn(MoveJournal *journal, const Leftover &leftover);

    /// Continues the journal of a process that has ended.
    /// @return null when its process lives or the file cannot be read
    [[nodiscard]] static std::unique_ptr<MoveJournal> takeOver(const QString &file);
    /// The records that are open in a journal that was taken over, in order; once.
    [[nodiscard]] std::vector<Unfinished> takeUnfinished();

private:
    bool openFile();
    bool append(quint8 type, quint64 id, const QByteArray &payload);
    void cutTo(qint64 size);
    void end(quint64 id);
    void keep(quint64 id);

    /// Empty when nothing can be recorded.
    QString m_folder;
    QByteArray m_path = {};
    int m_file = -1;
    qint64 m_size = 0;
    /// Entries that have not ended, without those that are kept.
    qint64 m_openEntries = 0;
    quint64 m_lastId = 0;
    quint64 m_lastKeptId = 0;
    /// Up to where the file holds records that are kept.
    qint64 m_keptSize = 0;
};

/// Where the processes of the user keep their journals; empty when there is no home.
[[nodiscard]] QString moveJournalFolder();

} // namespace sonavo
