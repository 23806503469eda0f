#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace sonavo {

// Panels in which the person chooses. Each keeps the rest of the application waiting, runs the event loop
// meanwhile, and ends as cancelled when the application quits. No files can be deleted, renamed or moved in
// them. Main thread only.

/// Files and folders, several at once. Files are listed only when their names are those of audio files.
/// @param folder where the panel starts, or empty for the person's music folder; then where it ended
/// @return file URLs; empty when cancelled
[[nodiscard]] QList<QUrl> askForMusic(QString &folder);

/// One folder, which may be made in the panel.
/// @param message the title of the panel
/// @param prompt text of the button that confirms
/// @param folder as in askForMusic()
/// @return absolute path; empty when cancelled
[[nodiscard]] QString askForFolder(const QString &message, const QString &prompt, QString &folder);

} // namespace sonavo
