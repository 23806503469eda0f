#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace sonavo {

// Modal dialogs for choosing files and folders. They run the event loop until the user has decided, and end
// as cancelled when the application quits. Main thread only.

/// Asks for files and folders, several at once, which no dialog of a desktop does. Of the files, only those
/// with an audio file's name are listed. Offers no way to delete, rename or move files.
/// @param folder where the dialog starts, the user's music folder if empty; set to where it ended
/// @return file URLs; empty when cancelled
[[nodiscard]] QList<QUrl> runMusicDialog(QString &folder);

/// Asks for one folder, which can be created in the dialog: that of the desktop where the platform theme has
/// one, else Qt's, with no way to delete, rename or move files.
/// @param title title of the dialog
/// @param acceptLabel text of the button that confirms
/// @param folder as in runMusicDialog()
/// @return absolute path; empty when cancelled
[[nodiscard]] QString runFolderDialog(const QString &title, const QString &acceptLabel, QString &folder);

/// Asks where to save a report, and whether a file may be replaced. The name decides between the two kinds of
/// file; where it does not, the kind that is chosen in the dialog does.
/// @param name proposed name, without an extension
/// @param folder as in runMusicDialog(), but the user's documents if empty
/// @return absolute path, which ends in ".csv" or ".json"; empty when cancelled
[[nodiscard]] QString runReportDialog(const QString &name, QString &folder);

} // namespace sonavo
