#pragma once

#include "generators/random_source.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <atomic>
#include <mutex>
#include <thread>

namespace sonavo {

/// A music folder with many duplicates that a thread keeps changing: files and folders come and go, get other
/// names and other content, and cannot be read. Where the rights allow it, a volume is mounted inside and
/// pulled out while a file is open on it. Never without songs, and never more than a few hundred.
class ChangingFolder
{
public:
    /// Fills the folder and starts to change it. @param root an empty folder
    ChangingFolder(QString root, std::uint64_t seed);
    /// Leaves nothing mounted.
    ~ChangingFolder();
    Q_DISABLE_COPY_MOVE(ChangingFolder)

    [[nodiscard]] const QString &path() const { return m_root; }
    /// The folders in it, at least one.
    [[nodiscard]] QStringList albums() const;
    /// Nothing changes until the lock is gone.
    [[nodiscard]] std::unique_lock<std::mutex> pause() { return std::unique_lock(m_mutex); }

    [[nodiscard]] int changeCount() const { return m_changes; }
    [[nodiscard]] int pulledVolumeCount() const { return m_pulledVolumes; }

private:
    void run(const std::stop_token &stop);
    void change();
    void addAlbum(const QString &path);
    void changeContent(const QString &file);
    void makeUnreadable(const QString &file);
    void mountOrPullVolume();
    /// A name in a folder that was not used before.
    [[nodiscard]] QString newPath(const QString &folder, const QString &extension = {});

    const QString m_root;
    RandomSource m_random;
    int m_pathCount = 0;
    /// Open as long as the volume is mounted.
    QFile m_fileOnVolume;
    std::atomic<int> m_changes = 0;
    std::atomic<int> m_pulledVolumes = 0;
    /// Held during every single change.
    std::mutex m_mutex;
    std::jthread m_thread;
};

} // namespace sonavo
