#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

#include <stop_token>

namespace sonavo {

/// Lists the audio files among files and folders, by extension alone. No file is opened: whether it is
/// readable audio shows when it is read.
///
/// Folders are walked as enumerateFolder() does, without the contents of packages; a folder that is given is
/// walked even when it is hidden, a link or a package. What is reached twice is listed twice. Waits for the
/// disk; any thread may call it.
/// @param urls file URLs, taken in order; others contribute nothing
/// @param stop ends the walk early; the list is then incomplete
/// @return absolute paths
[[nodiscard]] QStringList discoverAudioFiles(const QList<QUrl> &urls, const std::stop_token &stop = {});

/// Whether an item can be imported: a folder, or a file with an audio extension. Waits for the disk.
[[nodiscard]] bool isImportable(const QUrl &url);

/// A quick estimate of how many files discoverAudioFiles() would find. At most 101 entries below each given
/// folder are looked at, those inside packages included; after a folder with that many, the whole count so
/// far is multiplied by 10. Waits for the disk; any thread may call it.
/// @return zero or more; saturates at the largest 64-bit number
[[nodiscard]] qint64 estimateSongCount(const QList<QUrl> &urls);

} // namespace sonavo
