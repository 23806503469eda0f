#pragma once

#include "desktop/system_desktop.h"
#include "session/duplicate_view_model.h"
#include "ui/results/duplicate_list_model.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <functional>

namespace sonavo {

/// The application's window with its session, as it is when the program runs, looked at by what it shows and
/// used by mouse and keys.
class SoakedWindow
{
public:
    /// Throws std::runtime_error when there is no window.
    SoakedWindow();
    Q_DISABLE_COPY_MOVE(SoakedWindow)

    [[nodiscard]] bool shows(const QString &text) const { return itemWith(text) != nullptr; }
    /// Clicks on what has the text. @return whether it is there
    bool click(const QString &text) const;
    /// Presses a key in a row of the results. @return whether there is that row
    bool pressIn(int row, Qt::Key key) const;
    void scrollTo(double share) const;

    /// The rows of the results, also when they are not shown.
    [[nodiscard]] DuplicateListModel &rows() const;
    /// What differs between the session that was emptied and what is shown, in words; nothing when it is
    /// well.
    [[nodiscard]] QStringList faultsOfWelcome() const;
    /// The same for a finished scan.
    [[nodiscard]] QStringList faultsOfResults() const;

    [[nodiscard]] int objectCount() const;
    [[nodiscard]] int itemCount() const { return itemCountOf(*m_window->contentItem()); }
    void collectGarbage() { m_engine.collectGarbage(); }

private:
    [[nodiscard]] static int itemCountOf(const QQuickItem &item);
    [[nodiscard]] QQuickItem *itemWith(const QString &text) const;
    [[nodiscard]] QStringList expectedRows() const;
    [[nodiscard]] QStringList faultsOfShownRows() const;

    SystemDesktop m_desktop;

public:
    DuplicateViewModel session;

private:
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    QQuickItem *m_list = nullptr;
};

inline const QString WELCOME = QStringLiteral("Welcome to Sonavo");
inline const QString CANCEL_SCAN = QStringLiteral("Cancel & Go Back");
inline const QString CLEAR = QStringLiteral("Clear List");
inline const QString CLOSE_ALERT = QStringLiteral("OK");

} // namespace sonavo
