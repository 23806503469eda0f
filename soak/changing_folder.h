#pragma once

#include "generators/random_source.h"

#include <QTemporaryDir>

#include <mutex>
#include <thread>

namespace sonavo {

/// A music folder with many duplicates that a thread keeps changing: files and folders come and go, get other
/// names and other content, and cannot be read. Never without songs, and never more than a few hundred.
class ChangingFolder
{
public:
    /// Fills the folder and starts to change it.
    explicit ChangingFolder(std::uint64_t seed);

    [[nodiscard]] QString path() const { return m_root.path(); }
    /// Nothing changes until the lock is gone.
    [[nodiscard]] std::unique_lock<std::mutex> pause() { return std::unique_lock(m_mutex); }

private:
    void addAlbum();
    void change();
    /// A path that was not used before.
    [[nodiscard]] QString newPath(const QString &folder)
    {
        return folder + u'/' + QString::number(++m_paths);
    }

    QTemporaryDir m_root;
    RandomSource m_random;
    int m_paths = 0;
    /// Held during every single change.
    std::mutex m_mutex;
    std::jthread m_thread;
};

} // namespace sonavo
