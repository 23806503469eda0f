#pragma once

#include "session/duplicate_view_model.h"
#include "support/held_pauses.h"
#include "support/persons_desktop.h"

#include <QAccessible>
#include <QImage>
#include <QMimeData>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <functional>
#include <memory>
#include <ostream>
#include <vector>

inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

namespace sonavo {

/// The application's window, looked at and used as a person or a screen reader does: things are found by
/// what they say, and moved by mouse, keys and drops. It is shown at its smallest size, in the light theme. A
/// warning of the views fails the test.
class WindowDriver
{
public:
    WindowDriver();
    ~WindowDriver();
    Q_DISABLE_COPY_MOVE(WindowDriver)

    [[nodiscard]] QQuickWindow &window() const { return *m_window; }
    [[nodiscard]] QImage picture() const { return m_window->grabWindow(); }

    /// The texts that are visible now, in no particular order.
    [[nodiscard]] static std::vector<QQuickItem *> textItemsIn(QQuickItem &root);
    [[nodiscard]] std::vector<QQuickItem *> textItems() const
    {
        return textItemsIn(*m_window->contentItem());
    }
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] bool shows(const QString &text) const { return texts().contains(text); }
    /// Waits until the condition holds.
    [[nodiscard]] static bool waitFor(const std::function<bool()> &condition);
    [[nodiscard]] bool waitForText(const QString &text) const;
    [[nodiscard]] bool waitForNoText(const QString &text) const;

    /// What assistive technology is told, from the outside in, without what is hidden.
    [[nodiscard]] std::vector<QAccessibleInterface *> accessibleNodes() const;
    /// The first of a kind with a name, or null.
    [[nodiscard]] QAccessibleInterface *find(QAccessible::Role role, const QString &name) const;
    [[nodiscard]] QStringList namesOf(QAccessible::Role role) const;
    /// Name of what the keyboard is at.
    [[nodiscard]] QString focusedName() const;
    /// Where something is in the window.
    [[nodiscard]] static QRect placeOf(const QQuickItem &item);
    [[nodiscard]] static QRect placeOf(QAccessibleInterface &node);

    /// Clicks in the middle of what has the name, and fails when it is not there.
    void click(const QString &name, QAccessible::Role role = QAccessible::Button) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    /// Drags something into the window and holds it there.
    /// @return whether the window would take it
    bool drag(const QPoint &point, const QMimeData &data) const;
    void leave() const;
    /// Drops it, if the window takes it.
    void drop(const QPoint &point, const QMimeData &data) const;
    void drop(const QPoint &point, const QList<QUrl> &urls) const;

    /// Lets the session's pauses end until the condition holds; those that hide toasts go on.
    [[nodiscard]] bool goOnUntil(const std::function<bool()> &condition);
    /// Lets the toasts' time be over.
    void endToasts() { endPauses(true); }
    /// How many scans have begun.
    [[nodiscard]] std::size_t scans() const;

    PersonsDesktop desktop;
    std::shared_ptr<HeldPauses> pauses = std::make_shared<HeldPauses>();
    DuplicateViewModel session;

private:
    void endPauses(bool ofToasts);

    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
};

} // namespace sonavo
