#include "soak/soak_run.h"

#include "actions/headless_desktop.h"
#include "import/disk_task.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <cstdio>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int LONGEST_SCAN_MS = 60'000;
constexpr int SCREEN_CHANGE_MS = 5'000;

/// The songs and groups of a session without what is new in each scan.
struct Findings
{
    QStringList songs;
    QList<QStringList> groups;

    explicit Findings(const DuplicateViewModel &session)
    {
        for (const Song &song : session.songs())
            songs.append(u"%1 %2 %3"_s.arg(song.path).arg(song.size).arg(song.duration));
        for (const DuplicateGroup &group : session.duplicateGroups()) {
            groups.append({group.original.path});
            for (const Song &duplicate : group.duplicates)
                groups.last().append(duplicate.path);
        }
    }
    friend bool operator==(const Findings &, const Findings &) = default;
};

Findings findingsOfFreshSession(const QString &folder)
{
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(), groupColors(AppTheme::Light));
    session.startScan({QUrl::fromLocalFile(folder)});
    static_cast<void>(QTest::qWaitFor([&] { return !session.isScanning(); }, LONGEST_SCAN_MS));
    return Findings(session);
}

} // namespace

SoakRun::SoakRun(std::uint64_t seed)
    : m_random(seed)
    , m_folder(m_music.path(), seed + 1)
{
#ifndef SONAVO_SANITIZE
    // A sanitizer keeps what was freed.
    m_resources.emplace_back("resident memory, kB", residentMemory, 4096, 0.05);
    m_resources.emplace_back("allocated memory, kB", allocatedMemory, 1024, 0.05);
#endif
    // Helper threads come and go, and rows are kept to be used again: less than one for each scan.
    m_resources.emplace_back("open files", openFileCount, 5);
    m_resources.emplace_back("threads", threadCount, 3);
    m_resources.emplace_back(
        "objects of the window", [this] { return m_window.objectCount(); }, 50);
    m_resources.emplace_back(
        "items in the window", [this] { return m_window.itemCount(); }, 200);
}

bool SoakRun::run(int scans)
{
    const int interval = std::clamp(scans / 20, 2, 10);
    QElapsedTimer time;
    time.start();
    while (m_scan < scans) {
        if (++m_scan % interval != 0) {
            restlessScan();
            continue;
        }
        const std::unique_lock stillness = m_folder.standStill();
        quietScan();
        settle();
        for (Resource &resource : m_resources)
            resource.measure();
        std::printf("%5lld s: %d scans, %d cancelled, %d came to their end, %d previews, %d deletions, "
                    "%d changes, %d volumes pulled\n",
                    time.elapsed() / 1000, m_scan, m_cancelled, m_finished, m_previews, m_deleted,
                    m_folder.changeCount(), m_folder.pulledVolumeCount());
    }
    clear();
    return isWell();
}

void SoakRun::restlessScan()
{
    start(someFolder());
    while (m_random.isOneIn(4)) {
        waitAtRandom(700);
        start(someFolder());
    }
    if (m_random.below(5) < 2) {
        waitAtRandom(900);
        cancel();
        return;
    }
    awaitResults();
    useResults();
    if (m_random.isOneIn(2))
        clear();
}

void SoakRun::quietScan()
{
    m_scanned = m_folder.path();
    m_session.startScan({QUrl::fromLocalFile(m_scanned)});
    static_cast<void>(QTest::qWaitFor([this] { return !m_session.isScanning(); }, LONGEST_SCAN_MS));
    dismissAlert();
    addLastingFaults([this] { return m_window.faultsOfResults(); });
    if (m_session.duplicateCount() == 0)
        addFault(u"no duplicates are found"_s);
    if (!(Findings(m_session) == findingsOfFreshSession(m_scanned)))
        addFault(u"a fresh session finds something else"_s);
    ++m_finished;
    clear();
}

QString SoakRun::someFolder()
{
    if (m_random.isOneIn(20))
        return m_emptyFolder.path();
    const QStringList boxes = m_folder.boxes();
    return m_random.isOneIn(4) && !boxes.isEmpty()
               ? boxes[static_cast<qsizetype>(m_random.below(static_cast<std::size_t>(boxes.size())))]
               : m_folder.path();
}

void SoakRun::start(const QString &folder)
{
    dismissAlert();
    m_folder.beginRecord();
    m_scanned = folder;
    if (!m_session.importDrop({QUrl::fromLocalFile(folder)}))
        addFault(u"a scan does not start"_s);
}

void SoakRun::waitAtRandom(std::size_t most)
{
    const auto end = static_cast<int>(m_random.below(most + 1));
    if (m_random.isOneIn(4)) {
        QTest::qWait(end / 2);
        ThemeManager::shared()->toggleTheme();
    }
    if (m_random.isOneIn(8))
        m_session.stopPlayback();
    QTest::qWait(end);
}

void SoakRun::cancel()
{
    const bool wasScanning = m_session.isScanning();
    dismissAlert();
    if (m_random.isOneIn(4) || !m_window.click(CANCEL_SCAN))
        m_session.clearAll();
    // The scan can have come to its end while the mouse was on its way to the button.
    if (wasScanning && m_session.isScanning())
        addFault(u"a scan goes on after it was cancelled"_s);
    ++m_cancelled;
    if (m_session.songCount() > 0)
        clear();
    else
        checkWelcome();
}

void SoakRun::clear()
{
    dismissAlert();
    if (!m_window.click(CLEAR))
        m_session.clearAll();
    checkWelcome();
}

void SoakRun::dismissAlert()
{
    if (!m_session.showAlert())
        return;
    const bool isDismissed = QTest::qWaitFor(
        [this] {
            m_window.click(CLOSE_ALERT);
            return !m_session.showAlert() && !m_window.shows(CLOSE_ALERT);
        },
        SCREEN_CHANGE_MS);
    if (!isDismissed)
        addFault(u"an alert cannot be dismissed"_s);
}

void SoakRun::checkWelcome()
{
    const auto find = [this] { return m_window.faultsOfWelcome(); };
    addLastingFaults(find);
    // What comes to its end too late shows itself now.
    QTest::qWait(static_cast<int>(m_random.below(300)));
    for (const QString &fault : find())
        addFault(fault);
}

void SoakRun::awaitResults()
{
    if (!QTest::qWaitFor([this] { return !m_session.isScanning(); }, LONGEST_SCAN_MS))
        addFault(u"a scan does not end"_s);
    ++m_finished;
    const bool hasFoundSongs = !m_session.showAlert();
    dismissAlert();
    if (hasFoundSongs)
        checkResults();
}

void SoakRun::checkResults()
{
    if (m_session.progress() < 1.0 || !m_session.scanMessage().isEmpty())
        addFault(u"a scan's end leaves a message or some progress"_s);
    for (const Song &song : m_session.songs()) {
        if (!song.path.startsWith(m_scanned + u'/'))
            addFault(u"a song is not from the folder that was scanned"_s);
        else if (!m_folder.hasHeld(song.path))
            addFault(u"a song has never been there during the scan"_s);
    }
    addLastingFaults([this] { return m_window.faultsOfResults(); });
}

void SoakRun::useResults()
{
    for (std::size_t actions = m_random.below(16); actions > 0 && m_window.rows().count() > 0; --actions) {
        useOneRow();
        waitAtRandom(80);
        if (m_session.songCount() > 0)
            addLastingFaults([this] { return m_window.faultsOfResults(); });
    }
}

void SoakRun::useOneRow()
{
    const auto rows = static_cast<std::size_t>(m_window.rows().count());
    const auto row = static_cast<int>(m_random.below(rows));
    const bool isSong = m_window.rows().songAt(row).isValid();
    switch (m_random.weighted({6, 3, 1, 2, 2, 2, 1})) {
    case 0:
        m_previews += m_window.pressIn(row, Qt::Key_Space) && isSong ? 1 : 0;
        break;
    case 1:
        m_session.seekPlayback(static_cast<double>(m_random.below(900)), 900);
        break;
    case 2:
        m_session.stopPlayback();
        break;
    case 3:
        m_window.pressIn(row, Qt::Key_Left);
        break;
    case 4:
        m_window.pressIn(row, Qt::Key_Right);
        break;
    case 5:
        m_window.scrollTo(m_random.unit());
        break;
    default:
        m_deleted += m_window.pressIn(row, Qt::Key_Delete) && isSong ? 1 : 0;
    }
}

void SoakRun::settle()
{
    constexpr int REST_MS = 500;
    static_cast<void>(QTest::qWaitFor([this] { return !m_session.showToast(); }, SCREEN_CHANGE_MS));
    diskThreads().waitForDone();
    m_window.collectGarbage();
    QElapsedTimer rest;
    rest.start();
    double last = 0;
    static_cast<void>(QTest::qWaitFor(
        [&] {
            const double now = openFileCount() + threadCount();
            if (std::exchange(last, now) != now)
                rest.start();
            return rest.elapsed() > REST_MS;
        },
        SCREEN_CHANGE_MS));
}

void SoakRun::addLastingFaults(const std::function<QStringList()> &find)
{
    QStringList faults;
    const auto isWell = [&] {
        faults = find();
        return faults.isEmpty();
    };
    if (QTest::qWaitFor(isWell, SCREEN_CHANGE_MS))
        return;
    for (const QString &fault : std::as_const(faults))
        addFault(fault);
}

void SoakRun::addFault(const QString &fault)
{
    if (++m_faults[fault] == 1)
        std::printf("FAULT in scan %d: %s\n", m_scan, qPrintable(fault));
}

bool SoakRun::isWell() const
{
    bool isWell = m_faults.isEmpty();
    for (const Resource &resource : m_resources)
        isWell = resource.isSteady() && isWell;
    for (auto fault = m_faults.begin(); fault != m_faults.end(); ++fault)
        std::printf("FAULT, %d times: %s\n", fault.value(), qPrintable(fault.key()));
    return isWell;
}

} // namespace sonavo
