#pragma once

#include "actions/failure.h"
#include "actions/file_move.h"
#include "actions/moved_files_list.h"
#include "actions/put_back.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>

#include <variant>

namespace sonavo {

/// The folder that duplicates are moved into. It never overwrites a file, not even one that somebody else
/// puts there at the same moment, and it never holds half a file under a song's name. A list in it tells
/// where its files were; see MovedFilesList.
class DuplicatesFolder
{
public:
    /// Creates the folder "Duplicates_yyyy-MM-dd_HH-mm-ss" in `parent`, and any missing folders above it. If
    /// it already exists, it is used with what is in it.
    /// @param now local time
    [[nodiscard]] static std::variant<DuplicatesFolder, Failure> create(const QString &parent,
                                                                        const QDateTime &now);

    /// Absolute, or relative where the parent was.
    [[nodiscard]] const QString &path() const { return m_path; }

    /// Moves a file here with moveWithoutReplacing(), under its own name or, where that is taken, as
    /// "Name (1).mp3", "Name (2).mp3" and so on; a name that gets too long is cut. Its line in the list is on
    /// the disk before it moves; a file whose line cannot be written is not moved. Where an undo has removed
    /// the folder, it is made again.
    /// @return where the file is now, for moveBack(); on failure it is still where it was, or the reason
    /// names the two places where it can be
    [[nodiscard]] std::variant<MovedFile, Failure> moveHere(const QString &source,
                                                            const MoveOptions &options = {});

    /// Moves a file back with sonavo::moveBack(), and removes its line if that is the last one of the list.
    [[nodiscard]] static PutBackResult moveBack(const MovedFile &file, const MoveOptions &options = {});

    /// Removes what is left of files that are back: their lines, lists without a line, and folders with such
    /// a name in which nothing is left. To be called once for all files that were moved back together.
    static void forget(const QList<MovedFile> &files);

private:
    explicit DuplicatesFolder(QString path);

    void makeAgainIfRemoved();

    QString m_path;
    /// See volumeTopOf().
    QByteArray m_top;
    /// The next number to try for a name that was taken before: many albums have a "01 - Intro.mp3".
    QHash<QString, int> m_nextNumbers;
    MovedFilesList m_list;
};

} // namespace sonavo
