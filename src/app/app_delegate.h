#pragma once

#include <QObject>
#include <QPointer>

namespace sonavo {

class DuplicateViewModel;

/// Clears the session when the application ends or is suspended. Needs a QGuiApplication. Main thread only.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// @param viewModel may be destroyed earlier
    explicit AppDelegate(DuplicateViewModel *viewModel, QObject *parent = nullptr);

    /// Keeps the desktop from starting the application again with the user's next session.
    void applicationDidFinishLaunching();
    void applicationWillTerminate();

private:
    void clearSession();

    const QPointer<DuplicateViewModel> m_viewModel;
};

} // namespace sonavo
