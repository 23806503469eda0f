#pragma once

#include <QObject>
#include <QPointer>

namespace sonavo {

class DuplicateViewModel;

/// Event filter of the main window: clears the session when the window is closed. Main thread only.
class SceneDelegate : public QObject
{
    Q_OBJECT

public:
    /// @param viewModel may be destroyed earlier
    explicit SceneDelegate(DuplicateViewModel *viewModel, QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const QPointer<DuplicateViewModel> m_viewModel;
};

} // namespace sonavo
