#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

#include <stop_token>

namespace sonavo {

/// Lists the audio files among files and folders, by their extensions alone: whether an item is a readable
/// audio file shows when it is read. No file is opened.
///
/// Folders are walked depth-first, in byte order of names, without hidden items, the contents of package
/// folders, and links to folders; a folder that is given is walked even when it is a link or a package. What
/// is reached twice is listed twice.
/// @param urls file URLs, taken in order; others contribute nothing
/// @param stop ends the walk early; the list is then incomplete
/// @return absolute paths
/// Any thread may call it.
[[nodiscard]] QStringList discoverAudioFiles(const QList<QUrl> &urls, const std::stop_token &stop = {});

/// Whether a dropped item is one that songs can come from: a folder, or a file named like an audio file.
[[nodiscard]] bool isImportable(const QUrl &url);

/// A quick guess at how many songs discoverAudioFiles() would find. The walk of each
/// given folder ends at 101 entries; whenever there are that many, the whole count so far is multiplied
/// by 10.
/// @return zero or more; a count beyond 64 bits stays at their maximum
[[nodiscard]] qint64 estimateSongCount(const QList<QUrl> &urls);

} // namespace sonavo
