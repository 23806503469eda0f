#include "import/audio_discovery.h"

#include "import/folder_enumeration.h"
#include "model/audio_formats.h"
#include "model/saturating.h"

#include <QFileInfo>
#include <QPromise>

#include <atomic>
#include <mutex>
#include <optional>
#include <utility>

namespace sonavo {
namespace {

constexpr std::size_t MAX_SAMPLED_ENTRIES = 101;
constexpr qint64 EXTRAPOLATION_FACTOR = 10;

/// Empty unless it is absolute: "file:a.mp3" names no folder.
QString localPath(const QUrl &url)
{
    QString path = url.toLocalFile();
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path.startsWith(u'/') ? path : QString();
}

bool isFolder(const QString &path)
{
    return QFileInfo(path).isDir();
}

bool hasAudioExtension(const QString &path)
{
    return audioFormatOf(path).has_value();
}

} // namespace

/// A walk that one thread at a time goes on with, numbered from 0. Any thread may call it.
class AudioDiscovery::Walk
{
public:
    explicit Walk(QList<QUrl> urls)
        : m_urls(std::move(urls))
    {
        m_promise.start();
    }

    [[nodiscard]] QFuture<QStringList> result() const { return m_promise.future(); }
    [[nodiscard]] quint64 answers() const { return m_answers; }
    [[nodiscard]] qint64 foundFiles() const { return m_foundFiles; }
    [[nodiscard]] bool isFinished() const { return m_isFinished; }

    /// Goes on until the end, or until another thread does.
    void goOn(int thread)
    {
        std::unique_lock lock(m_mutex);
        while (m_thread == thread) {
            const std::optional<Item> item = nextToRead();
            if (!item) {
                finish(m_files);
                return;
            }
            lock.unlock();
            std::optional<FolderEntries> folder;
            if (item->isFolder || isFolder(item->path))
                folder = readFolder(item->path, m_folders.options().maxEntriesPerFolder, &m_answers);
            lock.lock();
            ++m_answers;
            if (m_thread != thread)
                return;
            if (folder)
                m_folders.enter(std::move(*folder));
            else
                addIfAudio(item->path);
        }
    }

    /// Leaves out what is being read, unless it has been read meanwhile.
    /// @param answers when it was found hanging
    /// @return the number of the thread that is to go on, if one is
    std::optional<int> leaveOut(quint64 answers)
    {
        const std::unique_lock lock(m_mutex, std::try_to_lock);
        return lock && m_answers == answers ? std::optional(++m_thread) : std::nullopt;
    }

    void endWithWhatIsFound()
    {
        const std::lock_guard lock(m_mutex);
        ++m_thread;
        finish(m_files);
    }
    /// Never waits for the thread.
    void endWithNothing()
    {
        ++m_thread;
        finish({});
    }

private:
    struct Item
    {
        QString path;
        /// False for one that was given, until it is looked at.
        bool isFolder;
    };

    std::optional<Item> nextToRead()
    {
        while (const std::optional<FolderWalk::Step> step = m_folders.next()) {
            addIfAudio(step->path);
            if (step->isEntered || m_isFinished)
                return Item{step->path, true};
        }
        if (m_nextUrl == m_urls.size())
            return std::nullopt;
        return Item{localPath(m_urls[m_nextUrl++]), false};
    }
    void addIfAudio(const QString &path)
    {
        // A copy has no memory to spare, unlike a text that was put together.
        if (hasAudioExtension(path))
            m_files.append(QString(path.constData(), path.size()));
        m_foundFiles = m_files.size();
    }
    void finish(const QStringList &files)
    {
        if (m_isFinished.exchange(true))
            return;
        m_promise.addResult(files);
        m_promise.finish();
    }

    const QList<QUrl> m_urls;
    ReadCounter m_answers = 0;
    std::atomic<int> m_thread = 0;
    std::atomic<qint64> m_foundFiles = 0;
    std::atomic<bool> m_isFinished = false;
    QPromise<QStringList> m_promise;

    /// Of what follows.
    std::mutex m_mutex;
    qsizetype m_nextUrl = 0;
    FolderWalk m_folders{{}};
    QStringList m_files;
};

AudioDiscovery::AudioDiscovery(const QList<QUrl> &urls, std::chrono::milliseconds timeout)
    : m_walk(std::make_shared<Walk>(urls))
{
    startThread(0);
    QObject::connect(&m_hangTimer, &QTimer::timeout, &m_hangTimer, [this] { leaveOutHangingFolder(); });
    m_hangTimer.start(timeout / AnswerWatch::LOOKS_PER_TIMEOUT);
}

AudioDiscovery::~AudioDiscovery()
{
    abandon();
}

QFuture<QStringList> AudioDiscovery::result() const
{
    return m_walk->result();
}

qint64 AudioDiscovery::foundFiles() const
{
    return m_walk->foundFiles();
}

void AudioDiscovery::abandon()
{
    m_walk->endWithNothing();
}

void AudioDiscovery::startThread(int number)
{
    // Destroying the task before replaces its thread.
    m_task = std::make_unique<DiskTask<bool>>([walk = m_walk, number](const std::stop_token &) {
        walk->goOn(number);
        return true;
    });
}

void AudioDiscovery::leaveOutHangingFolder()
{
    constexpr int MAX_HANGING_FOLDERS = 8;
    const quint64 answers = m_walk->answers();
    const bool canGoOn = DiskTaskState::canReplaceThread() && m_hangingFolders < MAX_HANGING_FOLDERS;
    // Where no thread is left, the walk may not even have begun.
    if (!m_watch.isHanging(answers, m_task->isRunning() || !canGoOn))
        return;
    if (!canGoOn) {
        m_walk->endWithWhatIsFound();
    } else if (const std::optional<int> thread = m_walk->leaveOut(answers)) {
        ++m_hangingFolders;
        startThread(*thread);
    }
}

bool isImportable(const QUrl &url)
{
    const QString path = localPath(url);
    return isFolder(path) || hasAudioExtension(path);
}

qint64 estimateSongCount(const QList<QUrl> &urls, ReadCounter *answers)
{
    qint64 count = 0;
    for (const QUrl &url : urls) {
        const QString path = localPath(url);
        const bool isEntered = isFolder(path);
        if (answers)
            ++*answers;
        if (!isEntered) {
            count = saturatingSum(count, hasAudioExtension(path) ? 1 : 0);
            continue;
        }
        std::size_t entries = 0;
        enumerateFolder(
            path, {EnumerationOptions::Packages::Enter, MAX_SAMPLED_ENTRIES},
            [&](const QString &entry) {
                count = saturatingSum(count, hasAudioExtension(entry) ? 1 : 0);
                return ++entries < MAX_SAMPLED_ENTRIES;
            },
            answers);
        if (entries == MAX_SAMPLED_ENTRIES)
            count = saturatingProduct(count, EXTRAPOLATION_FACTOR);
    }
    return count;
}

} // namespace sonavo
