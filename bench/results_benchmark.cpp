#include "actions/headless_desktop.h"
#include "generators/library_files.h"
#include "session/duplicate_view_model.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <vector>

namespace sonavo {
namespace {

constexpr QSize WINDOW(1440, 900);
constexpr int SONGS_A_GROUP = 3;

/// Every song in three folders, under the same name.
void writeGroups(const QString &root, int groups)
{
    QList<Song> songs;
    for (int copy = 0; copy < SONGS_A_GROUP; ++copy) {
        for (int i = 0; i < groups; ++i) {
            Song song;
            song.name = QStringLiteral("Artist%1 - Title%1.flac").arg(i);
            song.path = QStringLiteral("%1/%2/%3").arg(root).arg(copy).arg(song.name);
            song.fileType = QStringLiteral("FLAC");
            song.duration = 5.0;
            songs.append(song);
        }
    }
    writeLibrary(songs, LibraryFiles::Linked);
}

/// Percentile of some times; sorts them.
double percentile(std::vector<double> &times, double share)
{
    std::sort(times.begin(), times.end());
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
}

/// The real window with a session of its own.
class Window
{
public:
    Window()
    {
        // Before the views, so that the time counts from the moment that the groups are there.
        QObject::connect(&m_session, &DuplicateViewModel::duplicateGroupsChanged, &m_session,
                         [this] { m_sinceGroups.start(); });
        m_window = loadMainWindow(m_engine, m_session, *ThemeManager::shared());
        if (!m_window)
            throw std::runtime_error("the window does not load");
        m_window->resize(WINDOW);
        QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window, [this] { ++m_frames; });
        waitForFrame();
    }

    /// Scans a folder and shows the result.
    /// @return milliseconds from the groups to the first frame that shows them
    double showResults(const QString &folder)
    {
        m_session.clearAll();
        waitForFrame();
        QEventLoop loop;
        QObject::connect(&m_session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit);
        m_session.startScan({QUrl::fromLocalFile(folder)});
        while (m_session.isScanning())
            loop.exec();
        waitForFrame();
        const double time = milliseconds(m_sinceGroups);
        if (!list() || list()->property("count").toInt() <= m_session.duplicateCount())
            throw std::runtime_error("the groups are not on screen");
        return time;
    }

    /// Scrolls from the first row to the last.
    /// @return milliseconds of each frame
    std::vector<double> scroll(int frames)
    {
        std::vector<double> times;
        QQuickItem *flickable = list();
        const double end = flickable->property("contentHeight").toDouble() - flickable->height();
        for (int frame = 0; frame <= frames; ++frame) {
            QElapsedTimer timer;
            timer.start();
            flickable->setProperty("contentY", end * frame / frames);
            waitForFrame();
            times.push_back(milliseconds(timer));
        }
        return times;
    }

    [[nodiscard]] std::size_t itemCount() const { return countOf(m_window->contentItem()); }

private:
    static double milliseconds(const QElapsedTimer &timer)
    {
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

    static std::size_t countOf(const QQuickItem *item)
    {
        std::size_t count = 1;
        for (const QQuickItem *child : item->childItems())
            count += countOf(child);
        return count;
    }

    void waitForFrame()
    {
        const int before = m_frames;
        m_window->update();
        while (m_frames == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    [[nodiscard]] QQuickItem *list() const
    {
        for (QQuickItem *item : m_window->findChildren<QQuickItem *>()) {
            if (item->inherits("QQuickListView") && item->isVisible() && item->property("count").toInt() > 0)
                return item;
        }
        return nullptr;
    }

    HeadlessDesktop m_desktop;
    DuplicateViewModel m_session{m_desktop, std::make_shared<EventLoopPauses>(),
                                 groupColors(AppTheme::Light)};
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    QElapsedTimer m_sinceGroups;
    int m_frames = 0;
};

void measure(int groups, int runs, int frames)
{
    const QTemporaryDir folder;
    writeGroups(folder.path(), groups);
    Window window;
    std::vector<double> firstFrames;
    std::vector<double> slowFrames;
    std::vector<double> medianFrames;
    for (int run = 0; run < runs; ++run) {
        firstFrames.push_back(window.showResults(folder.path()));
        std::vector<double> times = window.scroll(frames);
        medianFrames.push_back(percentile(times, 0.5));
        slowFrames.push_back(percentile(times, 0.99));
    }
    std::printf(
        "%6d groups, %6d rows: first frame %.1f ms; scrolling: median %.1f ms, 99th percentile %.1f ms "
        "a frame; %zu items in the scene\n",
        groups, groups * (SONGS_A_GROUP + 1), percentile(firstFrames, 0.5), percentile(medianFrames, 0.5),
        percentile(slowFrames, 0.5), window.itemCount());
    std::fflush(stdout);
}

} // namespace
} // namespace sonavo

/// Shows results of several sizes in the real window on the software renderer, offscreen. Each figure is the
/// median of the runs; the scroll goes from end to end in a given number of frames.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    const QApplication application(argc, argv);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 5;
    constexpr int FRAMES = 600;
    try {
        for (const int groups : {200, 2'000, 20'000})
            sonavo::measure(groups, runs, FRAMES);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "bench_results: %s\n", error.what());
        return 1;
    }
    return 0;
}
