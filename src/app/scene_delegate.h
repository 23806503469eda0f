#pragma once

#include <QObject>
#include <QPointer>

namespace sonavo {

class DuplicateViewModel;

/// Watches the main window: its closing ends the session. Main thread only.
class SceneDelegate : public QObject
{
    Q_OBJECT

public:
    /// @param viewModel the session; may end earlier
    explicit SceneDelegate(DuplicateViewModel *viewModel, QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<DuplicateViewModel> m_viewModel;
};

} // namespace sonavo
