#include "testing/window_driver.h"

#include "theme/palette.h"
#include "theme/theme_manager.h"
#include "ui/main_window.h"

#include <QTest>
#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <algorithm>
#include <stdexcept>

namespace sonavo {
namespace {

constexpr int TIMEOUT_MS = 20'000;

void collectTexts(QQuickItem &item, std::vector<QQuickItem *> &texts)
{
    constexpr double BARELY_VISIBLE = 0.01;
    if (!item.isVisible() || item.opacity() < BARELY_VISIBLE)
        return;
    if (item.inherits("QQuickText") && !item.property("text").toString().isEmpty())
        texts.push_back(&item);
    for (QQuickItem *child : item.childItems())
        collectTexts(*child, texts);
}

void collectNodes(QAccessibleInterface *node, std::vector<QAccessibleInterface *> &nodes)
{
    if (!node || node->state().invisible)
        return;
    nodes.push_back(node);
    for (int i = 0; i < node->childCount(); ++i)
        collectNodes(node->child(i), nodes);
}

} // namespace

WindowDriver::WindowDriver(Desktop &desktop, const std::shared_ptr<Pauses> &pauses, QSize size)
    : session(desktop, pauses, groupColors(ThemeManager::shared()->currentTheme()))
{
    // As when a screen reader runs; the offscreen platform has none.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    window = loadMainWindow(m_engine, session, *ThemeManager::shared());
    if (!window)
        throw std::runtime_error("the window does not load");
    window->resize(size.isValid() ? size : window->minimumSize());
    if (!QTest::qWaitForWindowActive(window))
        throw std::runtime_error("the window does not become active");
}

bool WindowDriver::waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, TIMEOUT_MS);
}

std::vector<QQuickItem *> WindowDriver::textItems() const
{
    std::vector<QQuickItem *> texts;
    collectTexts(*window->contentItem(), texts);
    return texts;
}

bool WindowDriver::shows(const QString &text) const
{
    return std::ranges::any_of(
        textItems(), [&text](const QQuickItem *item) { return item->property("text").toString() == text; });
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
    collectNodes(QAccessible::queryAccessibleInterface(window), nodes);
    return nodes;
}

QAccessibleInterface *WindowDriver::find(QAccessible::Role role, const QString &name) const
{
    const auto nodes = accessibleNodes();
    const auto found = std::ranges::find_if(nodes, [&](QAccessibleInterface *node) {
        return node->role() == role && node->text(QAccessible::Name) == name;
    });
    return found == nodes.end() ? nullptr : *found;
}

QString WindowDriver::focusedName() const
{
    QAccessibleInterface *node = QAccessible::queryAccessibleInterface(window->activeFocusItem());
    return node ? node->text(QAccessible::Name) : QString();
}

QRect WindowDriver::rectOf(const QObject *item)
{
    const auto &quickItem = dynamic_cast<const QQuickItem &>(*item);
    return quickItem.mapRectToScene(QRectF(QPointF(), quickItem.size())).toAlignedRect();
}

QImage WindowDriver::pictureOf(const QRect &rect) const
{
    const QImage picture = window->grabWindow();
    // The image does not say how fine it is.
    const qreal scale = static_cast<qreal>(picture.width()) / window->width();
    return picture.copy(QRectF(rect.topLeft() * scale, rect.size() * scale).toRect());
}

void WindowDriver::click(const QString &button) const
{
    QAccessibleInterface *node = find(QAccessible::Button, button);
    if (!node)
        throw std::runtime_error(button.toStdString() + " is not shown");
    const QPoint center = rectOf(node->object()).center();
    QTest::mouseMove(window, center);
    QTest::mouseClick(window, Qt::LeftButton, {}, center);
}

void WindowDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    // A press at the time of the last release would be the repeat of a held key.
    QTest::qSleep(2);
    QTest::keyClick(window, key, modifiers);
}

} // namespace sonavo
