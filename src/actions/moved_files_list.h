#pragma once

#include "actions/file_move.h"
#include "actions/file_snapshot.h"
#include "actions/move_journal.h"

#include <QByteArray>
#include <QList>

#include <optional>
#include <variant>

namespace sonavo {

/// The file "Moved files.csv" in a folder of moved files, from which users learn where each was: a line for
/// every file with its new name and its original path, quoted as in RFC 4180, after the header
/// "New name,Original path". Names and paths are written as the bytes that the file system has. A name that
/// a spreadsheet could take for a formula gets "./" in front, which leads to the same file.
///
/// A file that somebody else has written is never touched: then the list has the next free name,
/// "Moved files (1).csv" and so on.
///
/// Paths are in the file system's encoding; errors are numbers as in errno. Any thread may call these.
class MovedFilesList
{
public:
    /// Makes no file yet.
    explicit MovedFilesList(QByteArray folder);

    /// Adds a line for a file that is about to be moved, and flushes it to the disk.
    /// @param to its new path
    /// @param journal may be null
    /// @return the record of the line, which ends when its file has been moved; or an error
    [[nodiscard]] std::variant<MoveJournal::Entry, int> add(const QByteArray &from, const QByteArray &to,
                                                            MoveJournal *journal);

    /// Removes the line that was added last, and the file with its only line.
    /// @return whether that was done
    bool takeBack();

    /// The path of the file; empty while there is none.
    [[nodiscard]] QByteArray path() const { return m_file ? m_file->path : QByteArray(); }

    // What follows works on the list that a moved file names, whether its object still exists or not.

    /// Records that the line of a file is about to become untrue, if it is the last one.
    [[nodiscard]] static MoveJournal::Entry recordRemoval(const MovedFile &file, MoveJournal *journal);

    /// Removes the line of a file if it is the last one.
    /// @return whether that was done
    static bool removeLast(const MovedFile &file);

    /// Removes the lines of files, wherever they are in their lists, and lists without a line.
    static void remove(const QList<MovedFile> &files);

private:
    [[nodiscard]] std::variant<MoveJournal::Entry, int> create(const QByteArray &from, const QByteArray &to,
                                                               MoveJournal *journal);

    QByteArray m_folder;
    std::optional<KnownFile> m_file;
    QByteArray m_lastLine;
};

} // namespace sonavo
