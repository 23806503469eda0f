#include "testing/window_driver.h"

#include "import/disk_task.h"
#include "testing/audio_fixtures.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(SonavoPlugin)

namespace sonavo {
namespace {

using namespace std::chrono_literals;

constexpr int PATIENCE_MS = 20'000;
constexpr Qt::DropActions OFFERED = Qt::CopyAction | Qt::MoveAction;
constexpr auto TOAST_TIME = 3s;
constexpr auto BEFORE_DISCOVERY = 200ms;

template <typename Visitor>
void visitVisible(QQuickItem &item, const Visitor &visit)
{
    constexpr double BARELY_VISIBLE = 0.01;
    if (!item.isVisible() || item.opacity() < BARELY_VISIBLE)
        return;
    visit(item);
    for (QQuickItem *child : item.childItems())
        visitVisible(*child, visit);
}

void visitShown(QAccessibleInterface *node, std::vector<QAccessibleInterface *> &nodes)
{
    if (!node || node->state().invisible)
        return;
    nodes.push_back(node);
    for (int i = 0; i < node->childCount(); ++i)
        visitShown(node->child(i), nodes);
}

void failAtWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // Those of the platform are about the machine that the test runs on.
    if (type != QtWarningMsg || QLatin1String(context.category).startsWith(QLatin1String("qt.qpa")))
        std::fputs((message + QLatin1Char('\n')).toUtf8().constData(), stderr);
    else
        ADD_FAILURE() << message.toStdString();
}

} // namespace

WindowDriver::WindowDriver()
    : session(desktop, pauses, groupColors(AppTheme::Light))
{
    qInstallMessageHandler(failAtWarnings);
    ThemeManager::shared()->setCurrentTheme(AppTheme::Light);
    m_engine.addImportPath(QStringLiteral(":/qt/qml"));
    m_engine.setInitialProperties({
        {QStringLiteral("viewModel"), QVariant::fromValue(&session)},
        {QStringLiteral("themeManager"), QVariant::fromValue(ThemeManager::shared())},
    });
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Sonavo/MainWindow.qml")));
    window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!window)
        throw std::runtime_error("there is no window");
    window->resize(window->minimumSize());
    ThemeManager::shared()->applyTheme();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

WindowDriver::~WindowDriver()
{
    // What still waits comes to its end; a scan makes further pauses on its way there.
    session.clearAll();
    std::size_t ended = 0;
    do {
        ended = pauses->count();
        endPauses(true);
        endPauses(false);
        diskThreads().waitForDone();
        QTest::qWait(20);
    } while (pauses->count() > ended);
    qInstallMessageHandler(nullptr);
}

std::vector<QQuickItem *> WindowDriver::textItemsIn(QQuickItem &root)
{
    std::vector<QQuickItem *> items;
    visitVisible(root, [&items](QQuickItem &item) {
        if (item.inherits("QQuickText") && !item.property("text").toString().isEmpty())
            items.push_back(&item);
    });
    return items;
}

QStringList WindowDriver::texts() const
{
    QStringList texts;
    for (const QQuickItem *item : textItemsIn(*window->contentItem()))
        texts.append(item->property("text").toString());
    return texts;
}

bool WindowDriver::waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, PATIENCE_MS);
}

std::vector<QAccessibleInterface *> WindowDriver::accessibleNodes() const
{
    std::vector<QAccessibleInterface *> nodes;
    visitShown(QAccessible::queryAccessibleInterface(window), nodes);
    return nodes;
}

QAccessibleInterface *WindowDriver::find(QAccessible::Role role, const QString &name) const
{
    for (QAccessibleInterface *node : accessibleNodes()) {
        if (node->role() == role && node->text(QAccessible::Name) == name)
            return node;
    }
    return nullptr;
}

QStringList WindowDriver::buttons() const
{
    QStringList names;
    for (const QAccessibleInterface *node : accessibleNodes()) {
        if (node->role() == QAccessible::Button)
            names.append(node->text(QAccessible::Name));
    }
    names.sort();
    return names;
}

QString WindowDriver::focusedName() const
{
    QAccessibleInterface *node = QAccessible::queryAccessibleInterface(window->activeFocusItem());
    return node ? node->text(QAccessible::Name) : QString();
}

QRect WindowDriver::placeOf(const QObject *item)
{
    const auto &place = dynamic_cast<const QQuickItem &>(*item);
    return place.mapRectToScene(QRectF(QPointF(), place.size())).toAlignedRect();
}

QPoint WindowDriver::dropZone() const
{
    const QAccessibleInterface *text = find(QAccessible::StaticText, u"Drag & Drop Music Folder Here"_s);
    EXPECT_NE(text, nullptr) << "there is no drop zone";
    return text ? placeOf(text->object()).center() - QPoint(0, 20) : QPoint();
}

void WindowDriver::click(const QString &name, QAccessible::Role role) const
{
    QAccessibleInterface *node = find(role, name);
    ASSERT_NE(node, nullptr) << name.toStdString() << " is not there";
    const QPoint middle = placeOf(node->object()).center();
    QTest::mouseMove(window, middle);
    QTest::mouseClick(window, Qt::LeftButton, {}, middle);
}

// The events are those that the toolkit makes of what the desktop says.

bool WindowDriver::drag(const QPoint &point, const QMimeData &data)
{
    if (!m_acceptedAction) {
        QDragEnterEvent enter(point, OFFERED, &data, Qt::LeftButton, {});
        enter.setDropAction(Qt::MoveAction);
        enter.ignore();
        QCoreApplication::sendEvent(window, &enter);
        m_acceptedAction = enter.isAccepted() ? enter.dropAction() : Qt::IgnoreAction;
    }
    QDragMoveEvent move(point, OFFERED, &data, Qt::LeftButton, {});
    move.setDropAction(*m_acceptedAction != Qt::IgnoreAction ? *m_acceptedAction : Qt::MoveAction);
    move.setAccepted(*m_acceptedAction != Qt::IgnoreAction);
    QCoreApplication::sendEvent(window, &move);
    m_acceptedAction = move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
    EXPECT_NE(m_acceptedAction, Qt::MoveAction) << "nobody is to take the files away";
    return move.isAccepted();
}

void WindowDriver::leave()
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(window, &leave);
    m_acceptedAction.reset();
}

void WindowDriver::drop(const QPoint &point, const QMimeData &data)
{
    if (!drag(point, data)) {
        leave();
        return;
    }
    QDropEvent drop(point, OFFERED, &data, Qt::LeftButton, {});
    drop.setDropAction(*m_acceptedAction);
    QCoreApplication::sendEvent(window, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    m_acceptedAction.reset();
}

void WindowDriver::drop(const QPoint &point, const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    drop(point, data);
}

bool WindowDriver::goOnUntil(const std::function<bool()> &condition)
{
    return waitFor([&] {
        endPauses(false);
        return condition();
    });
}

std::size_t WindowDriver::scans() const
{
    std::size_t scans = 0;
    for (std::size_t i = 0; i < pauses->count(); ++i)
        scans += pauses->lengthOf(i) == BEFORE_DISCOVERY ? 1U : 0U;
    return scans;
}

void WindowDriver::endPauses(bool ofToasts)
{
    for (std::size_t i = 0; i < pauses->count(); ++i) {
        if ((pauses->lengthOf(i) == TOAST_TIME) == ofToasts)
            pauses->end(i);
    }
}

void WindowDriver::scanSamples()
{
    session.startScan(SAMPLES);
    ASSERT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    ASSERT_TRUE(isResults());
}

void WindowDriver::raiseLimitWarning()
{
    session.importDroppedItems(MANY);
    ASSERT_TRUE(waitForText(LARGE_LIBRARY));
    ASSERT_TRUE(waitFor([this] { return focusedName() == ADD_ANYWAY; }));
}

void WindowDriver::raiseAlert()
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 101);
    session.importDroppedItems(QList<QUrl>(4, QUrl::fromLocalFile(folder.path())));
    ASSERT_TRUE(waitForText(session.alertMessage()));
    ASSERT_TRUE(waitFor([this] { return focusedName() == u"OK"; }));
}

} // namespace sonavo
