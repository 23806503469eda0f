#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <filesystem>
#include <optional>

namespace sonavo {

// Any thread may call these. They take as long as the disk does.

/// Within a volume, files can be renamed from any folder to any other; but not from one mount into another of
/// the same disk, nor from one btrfs subvolume into another in the same mount.
struct Volume
{
    quint64 mount = 0;
    quint64 device = 0;
    friend bool operator==(const Volume &, const Volume &) = default;
};

/// @return nothing on an error, which errno tells
[[nodiscard]] std::optional<Volume> volumeOf(const std::filesystem::path &folder);

/// The same for a folder that may not exist yet.
[[nodiscard]] std::optional<Volume> futureVolumeOf(std::filesystem::path folder);

/// The topmost folder of a volume.
/// @param folder on the volume, without links in its path
/// @return nothing on an error, which errno tells
[[nodiscard]] std::optional<std::filesystem::path> topOf(const Volume &volume, std::filesystem::path folder);

/// The topmost folder of the volume that a path is on, or would be on if it existed: another one when the
/// volume is not mounted any more. Links are followed.
/// @param path in the file system's encoding
/// @return empty on an error, which errno tells
[[nodiscard]] QByteArray volumeTopOf(const QByteArray &path);

} // namespace sonavo
