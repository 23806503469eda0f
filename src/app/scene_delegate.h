#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

namespace sonavo {

class DuplicateViewModel;

/// Delegate of the main window: clears the session when the window is closed, and brings it to the front when
/// its menu asks for that. Main thread only.
class SceneDelegate : public QObject
{
    Q_OBJECT

public:
    /// @param viewModel may be destroyed earlier
    explicit SceneDelegate(DuplicateViewModel *viewModel, QObject *parent = nullptr);

    /// @param window the main window, see loadMainWindow(); may be destroyed earlier
    void setWindow(QWindow &window);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_SLOT void showWindow();

    const QPointer<DuplicateViewModel> m_viewModel;
    QPointer<QWindow> m_window;
};

} // namespace sonavo
