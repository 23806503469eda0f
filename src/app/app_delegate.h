#pragma once

#include <QObject>
#include <QPointer>

namespace sonavo {

class DuplicateViewModel;

/// Stops playback and the scan when the application quits or is suspended. Main thread only.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// @param viewModel the session; may be destroyed earlier
    explicit AppDelegate(DuplicateViewModel *viewModel, QObject *parent = nullptr);

    /// Tells the session manager not to start the application again at the next login.
    void applicationDidFinishLaunching();

    /// Shutdown clean-up: stops playback and clears the session. Idempotent.
    /// @param viewModel may be null
    static void cleanUp(DuplicateViewModel *viewModel);

private:
    void applicationWillTerminate();

    QPointer<DuplicateViewModel> m_viewModel;
};

} // namespace sonavo
