#include "ui/window_driver.h"

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
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!m_window)
        throw std::runtime_error("there is no window");
    m_window->resize(m_window->minimumSize());
    ThemeManager::shared()->applyTheme();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_window));
    // As when a screen reader starts.
    QAccessible::setActive(true);
}

WindowDriver::~WindowDriver()
{
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
    for (const QQuickItem *item : textItems())
        texts.append(item->property("text").toString());
    return texts;
}

bool WindowDriver::waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, PATIENCE_MS);
}

bool WindowDriver::waitForText(const QString &text) const
{
    return waitFor([&] { return shows(text); });
}

bool WindowDriver::waitForNoText(const QString &text) const
{
    return waitFor([&] { return !shows(text); });
}

std::vector<QAccessibleInterface *> WindowDriver::accessibleNodes() const
{
    std::vector<QAccessibleInterface *> nodes;
    visitShown(QAccessible::queryAccessibleInterface(m_window), nodes);
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

QStringList WindowDriver::namesOf(QAccessible::Role role) const
{
    QStringList names;
    for (const QAccessibleInterface *node : accessibleNodes()) {
        if (node->role() == role)
            names.append(node->text(QAccessible::Name));
    }
    return names;
}

QString WindowDriver::focusedName() const
{
    QAccessibleInterface *node = QAccessible::queryAccessibleInterface(m_window->activeFocusItem());
    return node ? node->text(QAccessible::Name) : QString();
}

QRect WindowDriver::placeOf(const QQuickItem &item)
{
    return item.mapRectToScene(QRectF(QPointF(), item.size())).toAlignedRect();
}

QRect WindowDriver::placeOf(QAccessibleInterface &node)
{
    return placeOf(*qobject_cast<QQuickItem *>(node.object()));
}

void WindowDriver::click(const QString &name, QAccessible::Role role) const
{
    QAccessibleInterface *node = find(role, name);
    ASSERT_NE(node, nullptr) << name.toStdString() << " is not there";
    QTest::mouseMove(m_window, placeOf(*node).center());
    QTest::mouseClick(m_window, Qt::LeftButton, {}, placeOf(*node).center());
}

void WindowDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(m_window, key, modifiers);
}

bool WindowDriver::drag(const QPoint &point, const QMimeData &data) const
{
    // In the order in which the toolkit makes them of what the desktop says.
    QDragEnterEvent enter(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_window, &enter);
    QDragMoveEvent move(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    move.setAccepted(enter.isAccepted());
    QCoreApplication::sendEvent(m_window, &move);
    return move.isAccepted();
}

void WindowDriver::leave() const
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_window, &leave);
}

void WindowDriver::drop(const QPoint &point, const QMimeData &data) const
{
    if (!drag(point, data)) {
        leave();
        return;
    }
    QDropEvent drop(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_window, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "nobody is to take the files away";
}

void WindowDriver::drop(const QPoint &point, const QList<QUrl> &urls) const
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

} // namespace sonavo
