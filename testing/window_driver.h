#pragma once

#include "session/duplicate_view_model.h"

#include <QAccessible>
#include <QImage>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace sonavo {

using namespace Qt::Literals::StringLiterals;

inline const QString CANCEL_SCAN = u"Cancel & Go Back"_s;
inline const QString WELCOME = u"Welcome to Sonavo"_s;

/// The main window with its own session, read and used as a user or a screen reader does: controls are
/// found by what they say. Needs a QApplication.
class WindowDriver
{
public:
    /// Throws std::runtime_error when the window does not load.
    /// @param desktop must outlive the driver
    /// @param size in logical pixels; the smallest that the window can have unless given
    WindowDriver(Desktop &desktop, const std::shared_ptr<Pauses> &pauses, QSize size = {});
    Q_DISABLE_COPY_MOVE(WindowDriver)

    /// Runs the event loop until the condition holds. @return false after 20 seconds
    [[nodiscard]] static bool waitFor(const std::function<bool()> &condition);

    /// The items that show a text now, in no particular order.
    [[nodiscard]] std::vector<QQuickItem *> textItems() const;
    [[nodiscard]] bool shows(const QString &text) const;
    [[nodiscard]] bool waitForText(const QString &text) const;
    [[nodiscard]] bool waitForNoText(const QString &text) const;

    /// What assistive technology is told, parents first, without what is hidden.
    [[nodiscard]] std::vector<QAccessibleInterface *> accessibleNodes() const;
    /// The first node with a role and a name, or null.
    [[nodiscard]] QAccessibleInterface *find(QAccessible::Role role, const QString &name) const;
    /// Name of what has the keyboard focus.
    [[nodiscard]] QString focusedName() const;
    /// Where an item is in the window, in logical pixels.
    [[nodiscard]] static QRect rectOf(const QObject *item);

    /// What a part of the window looks like.
    /// @param rect in logical pixels
    [[nodiscard]] QImage pictureOf(const QRect &rect) const;

    /// Clicks in the middle of a button; throws std::runtime_error when it is not shown.
    void click(const QString &button) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    DuplicateViewModel session;
    QQuickWindow *window = nullptr;

private:
    QQmlApplicationEngine m_engine;
};

} // namespace sonavo
