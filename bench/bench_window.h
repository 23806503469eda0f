#pragma once

#include "actions/headless_desktop.h"
#include "session/duplicate_view_model.h"

#include <QElapsedTimer>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

#include <cstddef>
#include <vector>

namespace sonavo {

/// Qt on the software renderer, without a screen. To be called before there is a QApplication.
void useOffscreenWindows();

/// The real window with a session of its own. Needs a QApplication.
class BenchWindow
{
public:
    BenchWindow();

    /// Scans a folder and shows the result.
    /// @return milliseconds from the groups to the first frame that shows them
    double showResults(const QString &folder);

    /// Scrolls from the first row to the last.
    /// @return milliseconds of each frame
    [[nodiscard]] std::vector<double> scroll(int frames);

    /// Puts a text into the filter field and waits until the list shows what it leaves.
    /// @return milliseconds for which the longest turn of the event loop has computed, with its frame
    [[nodiscard]] double filter(const QString &text);

    [[nodiscard]] std::size_t itemCount() const;

private:
    void waitForFrame();
    [[nodiscard]] QQuickItem *list() const;
    [[nodiscard]] QQuickItem *filterField() const;

    HeadlessDesktop m_desktop;
    DuplicateViewModel m_session;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    QElapsedTimer m_sinceGroups;
    int m_frames = 0;
};

} // namespace sonavo
