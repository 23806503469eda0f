#pragma once

#include "actions/failure.h"

#include <QDateTime>
#include <QHash>
#include <QString>

#include <functional>
#include <variant>

namespace sonavo {

/// The folder that duplicates are moved into. It never overwrites a file, not even one that somebody else
/// puts there at the same moment, and it never holds half a file under a song's name.
class DuplicatesFolder
{
public:
    /// Makes the folder "Duplicates_yyyy-MM-dd_HH-mm-ss" in `parent`, with the folders above it where they
    /// are missing. One that exists is used as it is.
    /// @param now local time
    [[nodiscard]] static std::variant<DuplicatesFolder, Failure> create(const QString &parent,
                                                                        const QDateTime &now);

    /// Absolute, or relative where the parent was.
    [[nodiscard]] const QString &path() const { return m_path; }

    /// Moves a file here, under its own name or, where that is taken, as "Name (1).mp3", "Name (2).mp3" and
    /// so on. Within a file system that is one step; onto another one the file is copied, the copy made safe
    /// on the disk under its name, and then the source removed.
    /// @return whether the file is here now; if not, it is still where it was
    [[nodiscard]] bool moveHere(const QString &source);

private:
    /// Tries to put a file at a path that may be taken; an error number, 0 for success.
    using Placing = std::function<int(const QByteArray &destination)>;

    explicit DuplicatesFolder(QString path);
    [[nodiscard]] int copyHere(const QString &source);
    [[nodiscard]] int placeUnderFreeName(QStringView name, const Placing &place);

    QString m_path;
    /// The next number to try for a name that was taken before: many albums have a "01 - Intro.mp3".
    QHash<QString, int> m_nextNumbers;
};

} // namespace sonavo
