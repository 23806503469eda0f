#include "bench/goal.h"
#include "import/song_reading.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// A file of 4 MB and what reading it may cost, in CPU time of this thread.
struct Kind
{
    const char *name;
    QString type;
    /// Playing time in seconds.
    int length;
    QString encoding;
    /// Times the cost of the first kind.
    std::optional<double> goalRatio;
    std::optional<Milliseconds> goal;
};

std::vector<Kind> kinds()
{
    constexpr Milliseconds COUNTING{1.5};
    return {
        {"MP3, header", u"mp3"_s, 255, u"-b:a 128k"_s, {}, {}},
        {"FLAC", u"flac"_s, 19, u""_s, 3.0, {}},
        {"WAV", u"wav"_s, 24, u""_s, 3.0, {}},
        {"M4A", u"m4a"_s, 255, u"-c:a aac -b:a 128k"_s, 3.0, {}},
        {"M4A, fragments",
         u"m4a"_s,
         255,
         u"-c:a aac -b:a 128k -movflags +frag_keyframe -frag_duration 1000000"_s,
         3.0,
         {}},
        {"MP3, constant rate, no header", u"mp3"_s, 255, u"-b:a 128k -write_xing 0"_s, 2.0, {}},
        {"MP3, variable rate, no header", u"mp3"_s, 230, u"-q:a 2 -write_xing 0"_s, {}, COUNTING},
        {"AAC", u"aac"_s, 255, u"-b:a 128k"_s, {}, COUNTING},
        {"FLAC, no length", u"flac"_s, 19, u"-seekable 0"_s, {}, COUNTING},
    };
}

QString encode(const Kind &kind, const QString &folder)
{
    QString path = folder + u"/0."_s + kind.type;
    const QString source = u"aevalsrc=0.6*random(0)-0.3|0.3*sin(2000*t):s=44100:d=%1"_s.arg(kind.length);
    const QStringList arguments = u"-nostdin -y -loglevel error -f lavfi -i"_s.split(u' ') +
                                  QStringList{source} + kind.encoding.split(u' ', Qt::SkipEmptyParts) +
                                  QStringList{path};
    if (QProcess::execute(u"ffmpeg"_s, arguments) != 0)
        throw std::runtime_error("ffmpeg cannot write " + path.toStdString());
    return path;
}

Milliseconds threadTime()
{
    struct timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// The median of several runs over the same files, for each file. A first run warms up the caches.
Milliseconds timeOfReading(const QStringList &paths)
{
    constexpr std::size_t RUNS = 7;
    std::vector<Milliseconds> runs;
    for (std::size_t run = 0; run <= RUNS; ++run) {
        const Milliseconds start = threadTime();
        for (const QString &path : paths) {
            if (!readAudioFile(path))
                throw std::runtime_error("cannot read " + path.toStdString());
        }
        if (run > 0)
            runs.push_back((threadTime() - start) / paths.size());
    }
    std::nth_element(runs.begin(), runs.begin() + RUNS / 2, runs.end());
    return runs[RUNS / 2];
}

QStringList linkOften(const QString &path, const QString &type)
{
    constexpr int LINKS = 1000;
    QStringList paths{path};
    for (int i = 1; i < LINKS; ++i) {
        paths += u"%1/%2.%3"_s.arg(QFileInfo(path).path()).arg(i).arg(type);
        if (::link(QFile::encodeName(path), QFile::encodeName(paths.back())) != 0)
            throw std::runtime_error("cannot create a link");
    }
    return paths;
}

void measureKinds()
{
    std::optional<Milliseconds> first;
    std::printf("CPU time of reading a file of 4 MB, warm\n");
    for (const Kind &kind : kinds()) {
        const QTemporaryDir folder;
        const Milliseconds time = timeOfReading(linkOften(encode(kind, folder.path()), kind.type));
        if (!first) {
            first = time;
            printFigure(kind.name, time.count(), "ms");
            continue;
        }
        const Milliseconds goal = kind.goal ? *kind.goal : *first * *kind.goalRatio;
        printGoal(kind.name, time.count(), "ms", goal.count());
    }
}

/// Megabytes.
double peakMemory()
{
    struct rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

/// Reads files that go on for a terabyte behind the song.
void measureEndlessFiles()
{
    constexpr qint64 TERABYTE = qint64{1} << 40;
    constexpr double GOAL = 20.0;
    for (const Kind &kind : kinds()) {
        const QTemporaryDir folder;
        const QString path = encode(kind, folder.path());
        if (!QFile::resize(path, TERABYTE))
            throw std::runtime_error("cannot make a sparse file");
        const std::string name = std::string(kind.name) + ", then a terabyte of zeros";
        printGoal(name.c_str(), timeOfReading({path}).count(), "ms", GOAL);
    }
}

void measureAll()
{
    constexpr double MEMORY_GOAL = 32.0;
    const double memoryBefore = peakMemory();
    measureKinds();
    measureEndlessFiles();
    printGoal("peak memory of reading all of these", peakMemory() - memoryBefore, "MB", MEMORY_GOAL);
}

} // namespace
} // namespace sonavo

int main()
{
    try {
        sonavo::measureAll();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
