// Scans changing folders many times in one window and looks for what that leaves behind.
//
//     sonavo_soak [SCANS [SEED]]
#include "desktop/system_desktop.h"
#include "import/disk_task.h"
#include "session/event_loop_pauses.h"
#include "soak/changing_folder.h"
#include "testing/private_home.h"
#include "testing/sound_server.h"
#include "testing/window_driver.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/results/duplicate_list_model.h"

#include <QApplication>
#include <QHash>
#include <QQmlEngine>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <malloc.h>
#include <random>

namespace sonavo {
namespace {

std::mutex faultMutex;
QHash<QString, int> faults;

/// Counts a fault, found in whatever thread, and prints it the first time.
void expect(const QString &fault, bool isWell)
{
    const std::unique_lock lock(faultMutex);
    if (!isWell && ++faults[fault] == 1)
        std::printf("FAULT: %s\n", qPrintable(fault));
}

void expectSoon(const QString &fault, const std::function<bool()> &condition)
{
    expect(fault, WindowDriver::waitFor(condition));
}

double entryCount(const char *folder)
{
    using std::filesystem::directory_iterator;
    return static_cast<double>(std::distance(directory_iterator(folder), directory_iterator()));
}

/// Something that a process at rest must not hold more and more of.
struct Resource
{
    QString name;
    double (*read)();
    /// Growth that is no leak.
    double allowance;
    std::vector<double> values{};

    /// Compares the last quarter with the second one; caches fill in the first.
    void expectSteady() const
    {
        const auto quarter = static_cast<std::ptrdiff_t>(values.size() / 4);
        if (quarter < 2)
            return;
        const auto lowest = [&](auto begin) { return *std::min_element(begin, begin + quarter); };
        const double growth = lowest(values.end() - quarter) - lowest(values.begin() + quarter);
        std::printf("%s: %+.0f, at most %+.0f:", qPrintable(name), growth, allowance);
        for (const double value : values)
            std::printf(" %.0f", value);
        std::printf("\n");
        expect(name + u" grow"_s, growth <= allowance);
    }
};

/// What a scan found, without the ids, which are new in each scan.
QStringList resultOf(const DuplicateViewModel &session)
{
    QStringList result;
    for (const Song &song : session.songs())
        result.append(u"%1 %2 %3"_s.arg(song.path).arg(song.size).arg(song.duration));
    for (const DuplicateGroup &group : session.duplicateGroups()) {
        result.append(group.original.path);
        for (const Song &duplicate : group.duplicates)
            result.append(duplicate.path);
    }
    return result;
}

class SoakRun
{
public:
    explicit SoakRun(std::uint64_t seed)
        : m_random(seed)
        , m_folders{ChangingFolder(seed + 1), ChangingFolder(seed + 2)}
    {
        for (auto *item : m_window.window->findChildren<QQuickItem *>()) {
            if (item->property("model").value<DuplicateListModel *>())
                m_list = item;
        }
        m_rows = m_list->property("model").value<DuplicateListModel *>();
    }

    void run(int scans)
    {
        const int interval = std::clamp(scans / 20, 2, 10);
        for (int scan = 1; scan <= scans; ++scan) {
            if (scan % interval != 0) {
                scanWhileFilesChange();
                continue;
            }
            const std::unique_lock paused = m_folders[0].pause();
            scanAndCompare();
            diskThreads().waitForDone();
            qmlEngine(m_window.window)->collectGarbage();
            expectSoon(u"a toast stays"_s, [this] { return !m_session.showToast(); });
            QTest::qWait(1'000);
            for (Resource &resource : m_resources)
                resource.values.push_back(resource.read());
            std::printf("%d scans\n", scan);
        }
        for (const Resource &resource : m_resources)
            resource.expectSteady();
    }

private:
    void scanWhileFilesChange()
    {
        do {
            m_scanned = m_folders.at(m_random.below(2)).path();
            expect(u"a scan does not start"_s, m_session.importDrop({QUrl::fromLocalFile(m_scanned)}));
            waitUpTo(700);
        } while (m_random.isOneIn(4));
        if (m_random.isOneIn(2))
            return clear(CANCEL_SCAN);
        expectSoon(u"a scan does not end"_s, [this] { return !m_session.isScanning(); });
        checkResults();
        for (std::size_t i = m_random.below(16); i > 0 && m_rows->count() > 0; --i) {
            useRow();
            waitUpTo(80);
            if (m_session.songCount() > 0)
                checkResults();
        }
        if (m_random.isOneIn(2))
            clear(CLEAR);
    }

    /// To be called while nothing changes.
    void scanAndCompare()
    {
        m_scanned = m_folders[0].path();
        DuplicateViewModel other(m_desktop, std::make_shared<EventLoopPauses>(),
                                 groupColors(AppTheme::Light));
        for (DuplicateViewModel *session : {&m_session, &other}) {
            session->startScan({QUrl::fromLocalFile(m_scanned)});
            expectSoon(u"a scan does not end"_s, [session] { return !session->isScanning(); });
        }
        checkResults();
        expect(u"no duplicates are found"_s, m_session.duplicateCount() > 0);
        expect(u"a new session finds something else"_s, resultOf(m_session) == resultOf(other));
        clear(CLEAR);
    }

    /// Listens, seeks, collapses, expands or deletes.
    void useRow()
    {
        constexpr std::array KEYS{Qt::Key_Space, Qt::Key_Space, Qt::Key_Space,
                                  Qt::Key_Left,  Qt::Key_Right, Qt::Key_Delete};
        m_list->forceActiveFocus();
        m_list->setProperty("currentIndex",
                            static_cast<int>(m_random.below(static_cast<std::size_t>(m_rows->count()))));
        m_window.press(KEYS.at(m_random.below(KEYS.size())));
        m_session.seekPlayback(static_cast<double>(m_random.below(900)), 900);
    }

    void waitUpTo(std::size_t milliseconds)
    {
        if (m_random.isOneIn(4))
            ThemeManager::shared()->toggleTheme();
        QTest::qWait(static_cast<int>(m_random.below(milliseconds)));
    }

    /// Empties the session by a button, where it is shown: a scan can have ended meanwhile.
    void clear(const QString &button)
    {
        m_window.find(QAccessible::Button, button) ? m_window.click(button) : m_session.clearAll();
        checkWelcome();
        // What ends too late shows itself now.
        waitUpTo(300);
        checkWelcome();
    }

    void checkWelcome()
    {
        expectSoon(u"the welcome screen is not what is shown"_s, [this] {
            return m_window.shows(WELCOME) && !m_window.shows(CANCEL_SCAN) && !m_window.shows(CLEAR);
        });
        expect(u"something is left of the scan"_s,
               !m_session.isScanning() && m_session.scanMessage().isEmpty() && m_session.songs().isEmpty() &&
                   m_session.totalFiles() == 0 && m_session.progress() <= 0.0 && !m_session.showAlert() &&
                   !m_session.player() && m_rows->count() == 0);
    }

    void checkResults()
    {
        expect(u"a song is not from the folder that was scanned"_s,
               std::ranges::all_of(m_session.songs(), [this](const Song &song) {
                   return song.path.startsWith(m_scanned + u'/');
               }));
        expectSoon(u"the results are not what is shown"_s, [this] {
            return !m_window.shows(WELCOME) && !m_window.shows(CANCEL_SCAN) && m_window.shows(CLEAR) &&
                   m_window.shows(u"%1 total"_s.arg(m_session.songCount())) &&
                   m_window.shows(u"%1 duplicates"_s.arg(m_session.duplicateCount()));
        });
        expectSoon(u"the list shows other songs than the session has"_s, [this] {
            return m_list->property("count").toInt() == m_rows->count() && areShownRowsRight();
        });
    }

    [[nodiscard]] bool areShownRowsRight() const
    {
        const auto &playing = m_session.currentlyPlayingSong();
        const auto items = m_list->property("contentItem").value<QQuickItem *>()->childItems();
        return std::ranges::all_of(items, [&](const QQuickItem *item) {
            if (!item->isVisible() || !item->property("song").isValid())
                return true;
            const QUuid id = item->property("song").value<Song>().id;
            return id == m_rows->songAt(item->property("index").toInt()).value<Song>().id &&
                   item->property("isPlaying").toBool() == (playing && playing->id == id);
        });
    }

    const QString CLEAR = u"Clear List"_s;

    RandomSource m_random;
    std::array<ChangingFolder, 2> m_folders;
    SystemDesktop m_desktop;
    WindowDriver m_window{m_desktop, std::make_shared<EventLoopPauses>()};
    DuplicateViewModel &m_session = m_window.session;
    QQuickItem *m_list = nullptr;
    DuplicateListModel *m_rows = nullptr;
    QString m_scanned;
    std::vector<Resource> m_resources{
#ifndef SONAVO_SANITIZE
        // A sanitizer keeps what was freed.
        {u"allocated kilobytes"_s,
         [] {
             const auto heap = ::mallinfo2();
             return static_cast<double>(heap.uordblks + heap.hblkhd) / 1024;
         },
         512},
#endif
        // Helper threads come and go: less than one for each scan.
        {u"open files"_s, [] { return entryCount("/proc/self/fd"); }, 5},
        {u"threads"_s, [] { return entryCount("/proc/self/task"); }, 3},
    };
};

} // namespace
} // namespace sonavo

int main(int argc, char *argv[])
{
    const int scans = argc > 1 ? std::atoi(argv[1]) : 200;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : std::random_device()();
    const sonavo::PrivateHome home;
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    qputenv("GST_REGISTRY", SONAVO_PLUGIN_LIST);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("LC_ALL", "C.UTF-8");
    // What was found is to be read also when the run ends in a crash.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("sonavo"));
    QApplication::setOrganizationName(QStringLiteral("sonavo"));
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        sonavo::expect(message, type == QtDebugMsg || type == QtInfoMsg);
    });
    std::printf("%d scans, seed %llu\n", scans, static_cast<unsigned long long>(seed));
    try {
        const sonavo::SoundServer sound;
        sonavo::SoakRun(seed).run(scans);
    } catch (const std::exception &error) {
        sonavo::expect(QString::fromLocal8Bit(error.what()), false);
    }
    std::printf("%s\n", sonavo::faults.isEmpty() ? "All is well." : "SOMETHING IS WRONG.");
    return sonavo::faults.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
