#include "actions/volume.h"

#include "actions/file_snapshot.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#include <cerrno>

namespace sonavo {

namespace fs = std::filesystem;

std::optional<Volume> volumeOf(const fs::path &folder)
{
    struct statx status = {};
    if (::statx(AT_FDCWD, folder.c_str(), 0, STATX_MNT_ID, &status) != 0)
        return std::nullopt;
    const bool knowsMount = (status.stx_mask & STATX_MNT_ID) != 0; // since Linux 5.8
    return Volume{knowsMount ? status.stx_mnt_id : 0,
                  quint64{status.stx_dev_major} << 32 | status.stx_dev_minor};
}

namespace {

/// @param folder is replaced by the deepest folder on its path that exists
std::optional<Volume> volumeOfDeepest(fs::path &folder)
{
    std::optional<Volume> volume = volumeOf(folder);
    while (!volume && meansGone(errno) && folder.has_relative_path()) {
        folder = folder.parent_path();
        volume = volumeOf(folder);
    }
    return volume;
}

} // namespace

std::optional<Volume> futureVolumeOf(fs::path folder)
{
    return volumeOfDeepest(folder);
}

std::optional<fs::path> topOf(const Volume &volume, fs::path folder)
{
    while (folder.has_relative_path()) {
        const std::optional<Volume> parentVolume = volumeOf(folder.parent_path());
        if (!parentVolume)
            return std::nullopt;
        if (*parentVolume != volume)
            break;
        folder = folder.parent_path();
    }
    return folder;
}

QByteArray volumeTopOf(const QByteArray &path)
{
    std::error_code error;
    fs::path folder = fs::absolute(path.constData(), error);
    const std::optional<Volume> volume = volumeOfDeepest(folder);
    if (!volume)
        return {};
    folder = fs::canonical(folder, error);
    const auto top = error ? std::nullopt : topOf(*volume, folder);
    return top ? QByteArray(top->c_str()) : QByteArray();
}

} // namespace sonavo
