#include "actions/headless_desktop.h"
#include "generators/library_generator.h"
#include "session/clean_up.h"
#include "session/event_loop_pauses.h"
#include "session/review.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

/// How long every renaming takes, in milliseconds.
std::atomic<int> renamingTime = 0;

} // namespace

/// In place of the C library's: a disk that is slow to rename and as fast as any otherwise.
extern "C" int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
                         unsigned flags) noexcept
{
    std::this_thread::sleep_for(std::chrono::milliseconds(renamingTime.load()));
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

namespace sonavo {
namespace {

constexpr int SONGS_A_GROUP = 3;

/// Measures the turns of the event loop, each from waking up to waiting again, in milliseconds.
class TurnTimes
{
public:
    TurnTimes()
    {
        const auto *dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &m_context, [this] {
            if (!m_turn.isValid())
                m_turn.start();
        });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_context, [this] {
            if (m_turn.isValid())
                m_times.push_back(static_cast<double>(m_turn.nsecsElapsed()) / 1e6);
            m_turn.invalidate();
        });
        m_turn.start();
    }

    void print(const std::string &what, double seconds)
    {
        std::sort(m_times.begin(), m_times.end());
        const auto last = static_cast<double>(m_times.size() - 1);
        std::printf("%-52s %6.2f s, %6zu turns: longest %6.2f ms, 99.9th percentile %6.2f ms\n", what.c_str(),
                    seconds, m_times.size(), m_times.back(), m_times[static_cast<std::size_t>(0.999 * last)]);
        std::fflush(stdout);
    }

private:
    QObject m_context;
    QElapsedTimer m_turn;
    std::vector<double> m_times;
};

/// A session without views, with duplicates that are real files among songs that are none.
class Session
{
public:
    Session(const QString &root, int duplicates, std::size_t otherSongs)
    {
        QList<Song> songs = generateLibrary({.songs = std::max<std::size_t>(otherSongs, 1)});
        QList<DuplicateGroup> groups;
        for (int i = 0; i < duplicates / (SONGS_A_GROUP - 1); ++i) {
            QList<Song> members;
            for (int copy = 0; copy < SONGS_A_GROUP; ++copy)
                members.append(write(QStringLiteral("%1/%2/%3.mp3").arg(root).arg(copy).arg(i)));
            songs.append(members);
            groups.append({QUuid::createUuid(), members.takeFirst(), members, i % GROUP_TINT_COUNT});
        }
        m_library.setSongs(songs);
        m_library.setDuplicateGroups(groups);
    }

    void measure(const std::string &what, void (CleanUp::*operation)(), int duplicatesLeft)
    {
        measure(what, [&] { (m_cleanUp.*operation)(); });
        if (m_library.duplicateTotals().count != duplicatesLeft)
            throw std::runtime_error(m_notices.state().toastMessage.toStdString());
    }

    void measure(const std::string &what, void (Review::*operation)())
    {
        measure(what, [&] { (m_review.*operation)(); });
    }

private:
    void measure(const std::string &what, const std::function<void()> &operation)
    {
        TurnTimes times;
        QElapsedTimer timer;
        timer.start();
        QEventLoop loop;
        QObject::connect(&m_job, &FileJob::changed, &loop, &QEventLoop::quit, Qt::QueuedConnection);
        operation();
        while (m_job.state().isRunning)
            loop.exec();
        loop.processEvents();
        times.print(what, static_cast<double>(timer.elapsed()) / 1e3);
    }

    static Song write(const QString &path)
    {
        std::filesystem::create_directories(
            std::filesystem::path(QFile::encodeName(path).toStdString()).parent_path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write("song") != 4)
            throw std::runtime_error("cannot write " + path.toStdString());
        Song song;
        song.id = QUuid::createUuid();
        song.path = path;
        song.size = 4;
        return song;
    }

    HeadlessDesktop m_desktop;
    std::shared_ptr<Pauses> m_pauses = std::make_shared<EventLoopPauses>();
    Library m_library;
    Notices m_notices{m_pauses};
    Preview m_preview{m_desktop};
    Scan m_scan{m_library, m_notices, m_pauses};
    FileJob m_job;
    CleanUp m_cleanUp{{m_desktop, m_library, m_preview, m_notices, m_scan, m_job}, m_pauses};
    Review m_review{{m_library, m_preview, m_notices, m_scan, m_job}};
};

void measure(const std::string &what, int duplicates, std::size_t otherSongs)
{
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    Session session(home.path(), duplicates, otherSongs);
    session.measure(what + ", to the Trash", &CleanUp::trashDuplicates, 0);
    session.measure(what + ", back", &CleanUp::undo, duplicates);
    if (otherSongs == 0)
        return;
    const std::string songs = " " + std::to_string(otherSongs) + " songs";
    session.measure("find more among" + songs, &Review::findMore);
    session.measure("return to the first result of" + songs, &Review::returnToFirstResult);
}

} // namespace
} // namespace sonavo

/// How long clean-ups and their undo hold the main thread. It shares its cores with the job's thread, so the
/// times include what the system lets it wait.
int main(int argc, char **argv)
{
    for (const char *variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qunsetenv(variable);
    const QCoreApplication application(argc, argv);
    try {
        std::printf(
            "time of the main thread in a turn of the event loop; goal: 99.9th percentile under 16 ms\n");
        sonavo::measure("20,000 files", 20'000, 0);
        sonavo::measure("20,000 files of 500,000 songs", 20'000, 470'000);
        renamingTime = 100;
        sonavo::measure("60 files, 100 ms for each renaming", 60, 0);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "bench_clean_up: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
