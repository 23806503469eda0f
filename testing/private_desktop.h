#pragma once

#include <QColor>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace sonavo {

/// A desktop of a test's own: a virtual screen with a window manager, a session bus, and a home folder. What
/// it started ends with it.
class PrivateDesktop
{
public:
    PrivateDesktop();
    ~PrivateDesktop();
    Q_DISABLE_COPY_MOVE(PrivateDesktop)

    /// Throws std::runtime_error when something does not run.
    void start();

    /// Sets an environment variable for what is started from now on.
    void setVariable(const QString &name, const QString &value) { m_environment.insert(name, value); }
    [[nodiscard]] QString homePath() const { return m_home.path(); }
    [[nodiscard]] const QString &busAddress() const { return m_busAddress; }

    /// The colour of one point of the screen; invalid outside of it.
    [[nodiscard]] QColor pixelAt(const QPoint &point) const;

    /// Moves the mouse pointer, presses buttons and keys; see xdotool(1).
    /// @return whether that was possible
    [[nodiscard]] bool xdotool(const QStringList &commands) const;
    [[nodiscard]] bool click(const QPoint &point) const;

    /// A process of this desktop, not started yet. It does not outlive the test.
    [[nodiscard]] std::unique_ptr<QProcess> newProcess(const QString &program,
                                                       const QStringList &arguments = {}) const;

private:
    [[nodiscard]] static QString startAndReadLine(QProcess &process);

    QTemporaryDir m_home;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QString m_busAddress;
    std::unique_ptr<QProcess> m_screen;
    std::unique_ptr<QProcess> m_bus;
    std::unique_ptr<QProcess> m_windowManager;
};

} // namespace sonavo
