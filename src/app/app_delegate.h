#pragma once

#include <QObject>
#include <QPointer>

namespace sonavo {

class DuplicateViewModel;

/// Sees to it that nothing plays on and no scan runs on when the application ends. Main thread only.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// @param viewModel the session; may end earlier
    explicit AppDelegate(DuplicateViewModel *viewModel, QObject *parent = nullptr);

    /// The desktop is not to start the application again with the next session.
    void applicationDidFinishLaunching();

    /// The one clean-up of every way to an end; doing it twice does no harm.
    static void cleanUp(DuplicateViewModel *viewModel);

private:
    void applicationWillTerminate();

    QPointer<DuplicateViewModel> m_viewModel;
};

} // namespace sonavo
