#include "soak/soaked_window.h"

#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <stdexcept>

Q_IMPORT_QML_PLUGIN(SonavoPlugin)

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

QQuickItem *findShown(QQuickItem *item, const std::function<bool(const QQuickItem &)> &isWanted)
{
    constexpr double BARELY_VISIBLE = 0.01;
    if (!item->isVisible() || item->opacity() < BARELY_VISIBLE)
        return nullptr;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = findShown(child, isWanted))
            return found;
    }
    return isWanted(*item) ? item : nullptr;
}

Song songOf(const QVariant &value)
{
    return value.value<Song>();
}

} // namespace

SoakedWindow::SoakedWindow()
    : session(m_desktop, std::make_shared<EventLoopPauses>(), groupColors(AppTheme::Light))
{
    m_engine.addImportPath(QStringLiteral(":/qt/qml"));
    m_engine.setInitialProperties({
        {QStringLiteral("viewModel"), QVariant::fromValue(&session)},
        {QStringLiteral("themeManager"), QVariant::fromValue(ThemeManager::shared())},
    });
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Sonavo/MainWindow.qml")));
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!m_window || !QTest::qWaitForWindowActive(m_window))
        throw std::runtime_error("there is no window");
    for (auto *item : m_window->findChildren<QQuickItem *>()) {
        if (item->inherits("QQuickListView") && item->property("model").value<DuplicateListModel *>())
            m_list = item;
    }
    if (!m_list)
        throw std::runtime_error("there is no list");
    ThemeManager::shared()->applyTheme();
}

QQuickItem *SoakedWindow::itemWith(const QString &text) const
{
    return findShown(m_window->contentItem(),
                     [&text](const QQuickItem &item) { return item.property("text").toString() == text; });
}

bool SoakedWindow::click(const QString &text) const
{
    const QQuickItem *item = itemWith(text);
    if (!item)
        return false;
    const QRectF place = item->mapRectToScene(QRectF(QPointF(), item->size()));
    QTest::mouseClick(m_window, Qt::LeftButton, {}, place.center().toPoint());
    return true;
}

bool SoakedWindow::pressIn(int row, Qt::Key key) const
{
    if (!m_list->isVisible() || row >= rows().count())
        return false;
    m_list->forceActiveFocus();
    m_list->setProperty("currentIndex", row);
    QTest::keyClick(m_window, key);
    return true;
}

void SoakedWindow::scrollTo(double share) const
{
    const double end = m_list->property("contentHeight").toDouble() - m_list->height();
    m_list->setProperty("contentY", std::max(0.0, end) * share);
}

DuplicateListModel &SoakedWindow::rows() const
{
    return *m_list->property("model").value<DuplicateListModel *>();
}

QStringList SoakedWindow::faultsOfWelcome() const
{
    QStringList faults;
    const auto expect = [&faults](bool holds, const QString &fault) {
        if (!holds)
            faults.append(fault);
    };
    expect(shows(WELCOME), u"the welcome screen is not shown"_s);
    expect(!shows(CANCEL_SCAN) && !shows(CLEAR), u"another screen is still shown"_s);
    expect(!shows(CLOSE_ALERT) && !session.showAlert() && session.alertMessage().isEmpty(),
           u"an alert is left: %1"_s.arg(session.alertMessage()));
    expect(!session.isScanning(), u"something is being scanned"_s);
    expect(session.scanMessage().isEmpty(), u"a message is left: %1"_s.arg(session.scanMessage()));
    expect(session.progress() + static_cast<double>(session.processedFiles() + session.totalFiles()) == 0.0,
           u"some progress is left"_s);
    expect(session.songs().isEmpty() && session.duplicateGroups().isEmpty(), u"songs are left"_s);
    expect(rows().count() == 0 && m_list->property("count").toInt() == 0, u"rows are left"_s);
    expect(!session.player() && !session.currentlyPlayingSong(), u"a song is being played"_s);
    return faults;
}

QStringList SoakedWindow::expectedRows() const
{
    QStringList expected;
    for (const DuplicateGroup &group : session.duplicateGroups()) {
        if (group.duplicates.isEmpty())
            continue;
        expected.append(u"Group of %1 songs"_s.arg(group.duplicates.size() + 1));
        if (!rows().isExpanded(static_cast<int>(expected.size()) - 1))
            continue;
        expected.append(group.original.path);
        for (const Song &duplicate : group.duplicates)
            expected.append(duplicate.path);
    }
    return expected;
}

QStringList SoakedWindow::faultsOfResults() const
{
    QStringList faults;
    QStringList listed;
    for (int row = 0; row < rows().count(); ++row) {
        const QVariant title = rows().data(rows().index(row), DuplicateListModel::TitleRole);
        listed.append(title.isValid() ? title.toString() : songOf(rows().songAt(row)).path);
    }
    if (listed != expectedRows() || m_list->property("count").toInt() != listed.size())
        faults.append(u"the list shows other groups than the session has"_s);
    if (!shows(u"%1 total"_s.arg(session.songCount())) ||
        !shows(u"%1 duplicates"_s.arg(session.duplicateCount())))
        faults.append(u"the counts are not those of the session"_s);
    if (shows(WELCOME) || shows(CANCEL_SCAN) || !shows(CLEAR))
        faults.append(u"the results are not what is shown"_s);
    return faults + faultsOfShownRows();
}

QStringList SoakedWindow::faultsOfShownRows() const
{
    QStringList faults;
    const QUuid playing = session.currentlyPlayingSong() ? session.currentlyPlayingSong()->id : QUuid();
    for (const QQuickItem *row : m_list->property("contentItem").value<QQuickItem *>()->childItems()) {
        const QVariant song = row->property("song");
        if (!row->isVisible() || !song.isValid())
            continue;
        const QUuid id = songOf(song).id;
        if (id != songOf(rows().songAt(row->property("index").toInt())).id)
            faults.append(
                u"row %1 shows another song than it stands for: %2"_s.arg(row->property("index").toInt())
                    .arg(songOf(song).path));
        if (row->property("isPlaying").toBool() != (id == playing))
            faults.append(u"a row is wrong about what is being played"_s);
    }
    return faults;
}

int SoakedWindow::objectCount() const
{
    return static_cast<int>(m_window->findChildren<QObject *>().size());
}

int SoakedWindow::itemCountOf(const QQuickItem &item)
{
    int count = 1;
    for (const QQuickItem *child : item.childItems())
        count += itemCountOf(*child);
    return count;
}

} // namespace sonavo
