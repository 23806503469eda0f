#include "bench/bench_window.h"

#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/main_window.h"
#include "ui/results/duplicate_list_model.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <ctime>
#include <stdexcept>

namespace sonavo {
namespace {

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double threadMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

std::size_t countOf(const QQuickItem *item)
{
    std::size_t count = 1;
    for (const QQuickItem *child : item->childItems())
        count += countOf(child);
    return count;
}

} // namespace

void useOffscreenWindows()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
}

BenchWindow::BenchWindow()
    : m_session(m_desktop, std::make_shared<EventLoopPauses>(), groupColors(AppTheme::Light),
                std::make_shared<KnownDurations>())
{
    constexpr QSize SIZE(1440, 900);
    // Before the views, so that the time counts from the moment that the groups are there.
    QObject::connect(&m_session, &DuplicateViewModel::duplicateGroupsChanged, &m_session,
                     [this] { m_sinceGroups.start(); });
    m_window = loadMainWindow(m_engine, m_session, *ThemeManager::shared());
    if (!m_window)
        throw std::runtime_error("the window does not load");
    m_window->resize(SIZE);
    QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window, [this] { ++m_frames; });
    waitForFrame();
}

double BenchWindow::showResults(const QString &folder)
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

std::vector<double> BenchWindow::scroll(int frames)
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

double BenchWindow::filter(const QString &text)
{
    QObject context;
    double start = threadMilliseconds();
    double longest = 0.0;
    const auto update = [&] {
        longest = std::max(longest, threadMilliseconds() - start);
        start = threadMilliseconds();
    };
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &context, update);
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &context, update);
    const auto *model = m_window->findChild<DuplicateListModel *>();
    // When it begins, for the text, and when the groups are there, which are at once without a text.
    const int allChanges = text.isEmpty() ? 2 : 3;
    int changes = 0;
    QObject::connect(model, &DuplicateListModel::arrangementChanged, &context, [&] { ++changes; });
    filterField()->setProperty("text", text);
    while (changes < allChanges)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    waitForFrame();
    update();
    return longest;
}

std::size_t BenchWindow::itemCount() const
{
    return countOf(m_window->contentItem());
}

void BenchWindow::waitForFrame()
{
    const int before = m_frames;
    m_window->update();
    while (m_frames == before)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QQuickItem *BenchWindow::list() const
{
    for (QQuickItem *item : m_window->findChildren<QQuickItem *>()) {
        if (item->inherits("QQuickListView") && item->isVisible() && item->property("count").toInt() > 0)
            return item;
    }
    return nullptr;
}

QQuickItem *BenchWindow::filterField() const
{
    for (QQuickItem *item : m_window->findChildren<QQuickItem *>()) {
        if (item->inherits("QQuickTextInput") && item->isVisible())
            return item;
    }
    return nullptr;
}

} // namespace sonavo
