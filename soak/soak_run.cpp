#include "soak/soak_run.h"

#include "desktop/system_desktop.h"
#include "import/disk_task.h"
#include "session/event_loop_pauses.h"
#include "soak/changing_folder.h"
#include "soak/resources.h"
#include "testing/list_rows.h"
#include "testing/window_driver.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QElapsedTimer>
#include <QHash>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>

namespace sonavo {
namespace {

constexpr int SCREEN_TIMEOUT_MS = 5'000;
const QString CLEAR = u"Clear List"_s;
const QString CLOSE_ALERT = u"OK"_s;

QList<QUrl> urlsOf(const QString &folder)
{
    return {QUrl::fromLocalFile(folder)};
}

/// What a scan found, without the ids, which are new in each scan.
QStringList resultOf(const DuplicateViewModel &session)
{
    QStringList result;
    for (const Song &song : session.songs())
        result.append(u"%1 %2 %3"_s.arg(song.path).arg(song.size).arg(song.duration));
    return result + expectedRows(session.duplicateGroups(), [](const DuplicateGroup &, int) { return true; });
}

QStringList resultOfNewSession(Desktop &desktop, const QString &folder)
{
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(), groupColors(AppTheme::Light));
    session.startScan(urlsOf(folder));
    static_cast<void>(WindowDriver::waitFor([&] { return !session.isScanning(); }));
    return resultOf(session);
}

int itemCount(const QQuickItem &item)
{
    int count = 1;
    for (const QQuickItem *child : item.childItems())
        count += itemCount(*child);
    return count;
}

class SoakRun
{
public:
    explicit SoakRun(std::uint64_t seed)
        : m_random(seed)
        , m_folder(m_music.path(), seed + 1)
    {
        for (auto *item : m_window.window->findChildren<QQuickItem *>()) {
            if (item->property("model").value<DuplicateListModel *>())
                m_list = item;
        }
        m_rows = m_list->property("model").value<DuplicateListModel *>();
    }

    bool run(int scans)
    {
        const int interval = std::clamp(scans / 20, 2, 10);
        while (m_scan < scans) {
            if (++m_scan % interval != 0) {
                scanWhileFilesChange();
                continue;
            }
            const std::unique_lock paused = m_folder.pause();
            scanAndCompare();
            rest();
            for (Resource &resource : m_resources)
                resource.measure();
            std::printf("%d scans, %d cancelled, %d previews, %d deletions, %d changes, %d volumes pulled\n",
                        m_scan, m_cancelled, m_previews, m_deleted, m_folder.changeCount(),
                        m_folder.pulledVolumeCount());
        }
        bool isWell = m_faults.isEmpty();
        for (const Resource &resource : m_resources)
            isWell = resource.isSteady() && isWell;
        for (auto fault = m_faults.begin(); fault != m_faults.end(); ++fault)
            std::printf("FAULT, %d times: %s\n", fault.value(), qPrintable(fault.key()));
        return isWell;
    }

private:
    void scanWhileFilesChange()
    {
        do {
            dismissAlert();
            m_scanned = m_random.isOneIn(20)  ? m_emptyFolder.path()
                        : m_random.isOneIn(4) ? m_folder.albums().value(0, m_folder.path())
                                              : m_folder.path();
            expect(u"a scan does not start"_s, m_session.importDrop(urlsOf(m_scanned)));
            waitUpTo(700);
        } while (m_random.isOneIn(4));
        if (m_random.isOneIn(2)) {
            ++m_cancelled;
            return clear(CANCEL_SCAN);
        }
        expect(u"a scan does not end"_s, WindowDriver::waitFor([this] { return !m_session.isScanning(); }));
        const bool hasSongs = !m_session.showAlert();
        dismissAlert();
        if (hasSongs)
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
        m_scanned = m_folder.path();
        m_session.startScan(urlsOf(m_scanned));
        static_cast<void>(WindowDriver::waitFor([this] { return !m_session.isScanning(); }));
        dismissAlert();
        checkResults();
        expect(u"no duplicates are found"_s, m_session.duplicateCount() > 0);
        expect(u"a new session finds something else"_s,
               resultOf(m_session) == resultOfNewSession(m_desktop, m_scanned));
        clear(CLEAR);
    }

    void useRow()
    {
        const int row = static_cast<int>(m_random.below(static_cast<std::size_t>(m_rows->count())));
        const int isSong = m_rows->songAt(row).isValid() ? 1 : 0;
        const auto press = [&](Qt::Key key) {
            m_list->forceActiveFocus();
            m_list->setProperty("currentIndex", row);
            m_window.press(key);
        };
        switch (m_random.weighted({6, 3, 2, 2, 2, 1})) {
        case 0:
            m_previews += isSong;
            return press(Qt::Key_Space);
        case 1:
            return m_session.seekPlayback(static_cast<double>(m_random.below(900)), 900);
        case 2:
            return press(Qt::Key_Left);
        case 3:
            return press(Qt::Key_Right);
        case 4:
            m_list->setProperty("contentY", m_random.unit() * m_list->property("contentHeight").toDouble());
            return;
        default:
            m_deleted += isSong;
            press(Qt::Key_Delete);
        }
    }

    void waitUpTo(std::size_t milliseconds)
    {
        if (m_random.isOneIn(4))
            ThemeManager::shared()->toggleTheme();
        QTest::qWait(static_cast<int>(m_random.below(milliseconds)));
    }

    void dismissAlert()
    {
        if (!m_session.showAlert())
            return;
        expectSoon(u"an alert cannot be dismissed"_s, [this] {
            if (m_window.find(QAccessible::Button, CLOSE_ALERT))
                m_window.click(CLOSE_ALERT);
            return !m_session.showAlert() && !m_window.shows(CLOSE_ALERT);
        });
    }

    /// Empties the session by a button, where it is shown: a scan can have ended meanwhile.
    void clear(const QString &button)
    {
        dismissAlert();
        m_window.find(QAccessible::Button, button) ? m_window.click(button) : m_session.clearAll();
        checkWelcome();
        // What ends too late shows itself now.
        waitUpTo(300);
        checkWelcome();
    }

    void checkWelcome()
    {
        expectSoon(u"the welcome screen is not what is shown"_s, [this] {
            return m_window.shows(WELCOME) && !m_window.shows(CANCEL_SCAN) && !m_window.shows(CLEAR) &&
                   !m_window.shows(CLOSE_ALERT);
        });
        expect(u"something is left of the scan"_s,
               !m_session.isScanning() && m_session.scanMessage().isEmpty() && m_session.songs().isEmpty() &&
                   m_session.duplicateGroups().isEmpty() && m_session.processedFiles() == 0 &&
                   m_session.totalFiles() == 0 && m_session.progress() <= 0.0 &&
                   m_session.alertMessage().isEmpty() && m_rows->count() == 0);
        expect(u"a song is being played"_s, !m_session.player() && !m_session.currentlyPlayingSong());
    }

    void checkResults()
    {
        expect(u"the end of a scan leaves a message or some progress"_s,
               m_session.progress() >= 1.0 && m_session.scanMessage().isEmpty());
        expect(u"a song is not from the folder that was scanned"_s,
               std::ranges::all_of(m_session.songs(), [this](const Song &song) {
                   return song.path.startsWith(m_scanned + u'/');
               }));
        expectSoon(u"the results are not what is shown"_s, [this] {
            return !m_window.shows(WELCOME) && !m_window.shows(CANCEL_SCAN) && m_window.shows(CLEAR) &&
                   m_window.shows(u"%1 total"_s.arg(m_session.songCount())) &&
                   m_window.shows(u"%1 duplicates"_s.arg(m_session.duplicateCount()));
        });
        expectSoon(u"the list shows other groups than the session has"_s, [this] {
            const auto isExpanded = [this](const DuplicateGroup &, int row) {
                return m_rows->isExpanded(row);
            };
            return rowsOf(*m_rows) == expectedRows(m_session.duplicateGroups(), isExpanded) &&
                   m_list->property("count").toInt() == m_rows->count() && areShownRowsRight();
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

    /// Until threads and files are given back, and toasts are gone.
    void rest()
    {
        diskThreads().waitForDone();
        qmlEngine(m_window.window)->collectGarbage();
        QElapsedTimer time;
        time.start();
        double last = 0;
        static_cast<void>(WindowDriver::waitFor([&] {
            const double now = openFileCount() + threadCount();
            if (std::exchange(last, now) != now || m_session.showToast())
                time.start();
            return time.elapsed() > 500;
        }));
    }

    void expectSoon(const QString &fault, const std::function<bool()> &condition)
    {
        expect(fault, QTest::qWaitFor(condition, SCREEN_TIMEOUT_MS));
    }
    void expect(const QString &fault, bool isWell)
    {
        if (!isWell && ++m_faults[fault] == 1)
            std::printf("FAULT in scan %d: %s\n", m_scan, qPrintable(fault));
    }

    RandomSource m_random;
    QTemporaryDir m_music;
    QTemporaryDir m_emptyFolder;
    ChangingFolder m_folder;
    SystemDesktop m_desktop;
    WindowDriver m_window{m_desktop, std::make_shared<EventLoopPauses>()};
    DuplicateViewModel &m_session = m_window.session;
    QQuickItem *m_list = nullptr;
    DuplicateListModel *m_rows = nullptr;

    QString m_scanned;
    int m_scan = 0;
    int m_cancelled = 0;
    int m_previews = 0;
    int m_deleted = 0;
    QHash<QString, int> m_faults;
    std::vector<Resource> m_resources{
#ifndef SONAVO_SANITIZE
        // A sanitizer keeps what was freed.
        {"resident memory, kB", residentMemory, 4096, 0.05},
        {"allocated memory, kB", allocatedMemory, 1024, 0.05},
#endif
        // Helper threads come and go, and rows are kept for reuse: less than one for each scan.
        {"open files", openFileCount, 5},
        {"threads", threadCount, 3},
        {"objects of the window",
         [this] { return static_cast<double>(m_window.window->findChildren<QObject *>().size()); }, 50},
        {"items in the window", [this] { return itemCount(*m_window.window->contentItem()); }, 200},
    };
};

} // namespace

bool soak(int scans, std::uint64_t seed)
{
    return SoakRun(seed).run(scans);
}

} // namespace sonavo
