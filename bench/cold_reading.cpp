#include "bench/cold_reading.h"

#include "import/disk_task.h"
#include "import/song_read_ahead.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

namespace sonavo {
namespace {

constexpr std::size_t PAGE = 4096;

void emptyDiskCache()
{
    ::sync();
    QFile caches(QStringLiteral("/proc/sys/vm/drop_caches"));
    if (!caches.open(QIODevice::WriteOnly) || caches.write("3\n") != 2 || !caches.flush())
        throw std::runtime_error("no right to empty the disk cache");
}

template <typename Work>
double secondsOf(const Work &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void readAhead(const QStringList &files, const std::shared_ptr<KnownDurations> &known)
{
    SongReadAhead reading(files, {}, known);
    while (reading.hasMore()) {
        const QFuture<SongReadAhead::Results> results = reading.next();
        while (!results.isFinished())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
}

/// Consecutive pages of a file.
struct Range
{
    off_t offset;
    std::size_t size;
};

/// The parts of a file that are in the disk cache.
std::vector<Range> cachedRanges(const QString &path)
{
    const int file = ::open(QFile::encodeName(path), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    std::vector<Range> ranges;
    if (file >= 0 && ::fstat(file, &status) == 0 && status.st_size > 0) {
        const auto size = static_cast<std::size_t>(status.st_size);
        std::vector<unsigned char> isCached((size + PAGE - 1) / PAGE);
        void *const map = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file, 0);
        if (map != MAP_FAILED && ::mincore(map, size, isCached.data()) == 0) {
            for (std::size_t page = 0; page < isCached.size(); ++page) {
                if ((isCached[page] & 1) == 0)
                    continue;
                if (page > 0 && (isCached[page - 1] & 1) != 0)
                    ranges.back().size += PAGE;
                else
                    ranges.push_back({static_cast<off_t>(page * PAGE), PAGE});
            }
        }
        ::munmap(map, size);
    }
    ::close(file);
    return ranges;
}

void readRanges(const QString &path, const std::vector<Range> &ranges)
{
    std::vector<char> buffer;
    const int file = ::open(QFile::encodeName(path), O_RDONLY | O_CLOEXEC);
    // Or the system reads more than that.
    ::posix_fadvise(file, 0, 0, POSIX_FADV_RANDOM);
    for (const Range &range : ranges) {
        buffer.resize(range.size);
        if (::pread(file, buffer.data(), range.size, range.offset) < 0)
            throw std::runtime_error("cannot read " + path.toStdString());
    }
    ::close(file);
}

void readOnAllThreads(const QStringList &files, const std::vector<std::vector<Range>> &ranges)
{
    std::atomic<qsizetype> next = 0;
    std::vector<std::jthread> threads;
    const int threadCount = diskThreads().maxThreadCount();
    threads.reserve(static_cast<std::size_t>(threadCount));
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (qsizetype file = next++; file < files.size(); file = next++)
                readRanges(files[file], ranges[static_cast<std::size_t>(file)]);
        });
    }
}

} // namespace

ColdTimes measureColdReading(const QStringList &files)
{
    ColdTimes times;
    const auto known = std::make_shared<KnownDurations>();
    emptyDiskCache();
    times.reading = secondsOf([&] { readAhead(files, known); });
    std::vector<std::vector<Range>> ranges;
    for (const QString &file : files)
        ranges.push_back(cachedRanges(file));
    emptyDiskCache();
    times.sameBytes = secondsOf([&] { readOnAllThreads(files, ranges); });
    emptyDiskCache();
    times.known = secondsOf([&] { readAhead(files, known); });
    return times;
}

} // namespace sonavo
