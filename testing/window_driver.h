#pragma once

#include "session/duplicate_view_model.h"
#include "testing/fake_desktop.h"
#include "testing/test_pauses.h"

#include <QAccessible>
#include <QImage>
#include <QMimeData>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <vector>

inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

namespace sonavo {

using namespace Qt::Literals::StringLiterals;

inline const QString ADD_ANYWAY = u"Add Anyway"_s;
inline const QString ALERT = u"Notification"_s;
inline const QString BROWSE = u"Browse Files"_s;
inline const QString CANCEL_SCAN = u"Cancel & Go Back"_s;
inline const QString LARGE_LIBRARY = u"Large Library Detection"_s;
inline const QString TO_DARK = u"Switch to the dark theme"_s;

inline const QList<QUrl> SAMPLES{QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES))};
inline const QUrl SONG = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3"));
/// More than are imported without asking.
inline const QList<QUrl> MANY(10'001, SONG);

/// The application's window, looked at and used as a person or a screen reader does: things are found by
/// what they say, and moved by mouse, keys and drops. It is shown at its smallest size, in the light theme. A
/// warning of the views fails the test.
class WindowDriver
{
public:
    WindowDriver();
    ~WindowDriver();
    Q_DISABLE_COPY_MOVE(WindowDriver)

protected:
    [[nodiscard]] static bool waitFor(const std::function<bool()> &condition);
    /// The texts that are visible now, in no particular order.
    [[nodiscard]] static std::vector<QQuickItem *> textItemsIn(QQuickItem &root);
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] bool shows(const QString &text) const { return texts().contains(text); }
    [[nodiscard]] bool waitForText(const QString &text) const
    {
        return waitFor([&] { return shows(text); });
    }
    [[nodiscard]] bool waitForNoText(const QString &text) const
    {
        return waitFor([&] { return !shows(text); });
    }
    [[nodiscard]] bool isWelcome() const { return shows(u"Welcome to Sonavo"_s) && !shows(CANCEL_SCAN); }
    [[nodiscard]] bool isProgress() const { return shows(CANCEL_SCAN) && !shows(u"Welcome to Sonavo"_s); }
    [[nodiscard]] bool isResults() const { return !shows(CANCEL_SCAN) && !shows(u"Welcome to Sonavo"_s); }

    /// What assistive technology is told, from the outside in, without what is hidden.
    [[nodiscard]] std::vector<QAccessibleInterface *> accessibleNodes() const;
    /// The first of a kind with a name, or null.
    [[nodiscard]] QAccessibleInterface *find(QAccessible::Role role, const QString &name) const;
    /// Names of all buttons, sorted.
    [[nodiscard]] QStringList buttons() const;
    /// Name of what the keyboard is at.
    [[nodiscard]] QString focusedName() const;
    [[nodiscard]] static QRect placeOf(const QObject *item);
    [[nodiscard]] QPoint corner() const { return {20, window->height() - 20}; }
    /// A point in the drop zone above its text.
    [[nodiscard]] QPoint dropZone() const;

    /// Clicks in the middle of what has the name, and fails when it is not there.
    void click(const QString &name, QAccessible::Role role = QAccessible::Button) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(window, key, modifiers);
    }

    /// Drags something into the window, or on to somewhere else in it. Like a file manager, it offers to move
    /// the files.
    /// @return whether the window would take it
    bool drag(const QPoint &point, const QMimeData &data);
    void leave();
    /// Drops it, if the window takes it.
    void drop(const QPoint &point, const QMimeData &data);
    void drop(const QPoint &point, const QList<QUrl> &urls);

    /// Lets the session's pauses end until the condition holds; those that hide toasts go on.
    [[nodiscard]] bool goOnUntil(const std::function<bool()> &condition);
    void endPauses(bool ofToasts);
    /// How many scans have begun.
    [[nodiscard]] std::size_t scans() const;
    void scanSamples();
    void raiseLimitWarning();
    /// Imports more than may be imported at all, which is guessed of crowded folders.
    void raiseAlert();

    FakeDesktop desktop;
    std::shared_ptr<HeldPauses> pauses = std::make_shared<HeldPauses>();
    DuplicateViewModel session;
    QQuickWindow *window = nullptr;

private:
    QQmlApplicationEngine m_engine;
    /// What the window would do with what is dragged over it, as far as it has said.
    std::optional<Qt::DropAction> m_acceptedAction;
};

} // namespace sonavo
