#pragma once

#include "analysis/pauses.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

namespace sonavo {

/// The session's messages to the user: an alert, which stays until it is dismissed, and a toast, which
/// disappears by itself. Main thread only.
class Notices : public QObject
{
    Q_OBJECT

public:
    enum class ToastType
    {
        Success,
        Error,
        Info
    };
    Q_ENUM(ToastType)

    /// What a toast's button does.
    enum class ToastAction
    {
        Undo,
        /// Scans everything that was dropped together.
        ScanAll,
        /// Shows the report that was saved in the system's file viewer.
        ShowReport
    };

    struct State
    {
        bool isAlertShown = false;
        QString alertMessage;
        bool isToastShown = false;
        QString toastMessage;
        ToastType toastType = ToastType::Info;
        /// Counts the toasts, so that two of the same text are two.
        int toastNumber = 0;
        /// Text of the toast's button; empty without one.
        QString toastAction;
        ToastAction toastActionKind = ToastAction::Undo;

        friend bool operator==(const State &, const State &) = default;
    };

    explicit Notices(std::shared_ptr<Pauses> pauses, QObject *parent = nullptr);

    [[nodiscard]] const State &state() const { return m_state; }

    /// Shows an alert, in place of one that is still shown.
    void raiseAlert(const QString &message);
    void setAlertShown(bool isShown);
    /// Hides the alert and forgets its text.
    void clearAlert();

    /// Shows a toast for three seconds. Another one within that time replaces it at once and is hidden when
    /// the time of the first is over.
    /// @param action text of a button; a toast that has one stays for eight seconds whatever was shown
    /// before, and one that offers ScanAll until it is closed or the offer is withdrawn
    void showToast(const QString &message, ToastType type, const QString &action = {},
                   ToastAction kind = ToastAction::Undo);
    void setToastShown(bool isShown);
    /// Keeps a toast with a button as long as the pointer or the keyboard is on it, if it is still shown.
    void holdToast(bool isHeld);
    /// Takes a button of this kind from the toast, which is then like any other. One that offered ScanAll
    /// goes.
    void removeToastAction(ToastAction kind = ToastAction::Undo);

Q_SIGNALS:
    void changed(const sonavo::Notices::State &before);

private:
    static QCoro::Task<> hideToastLater(QPointer<Notices> self);
    static QCoro::Task<> endToastWithAction(QPointer<Notices> self, int number);
    void hideOverdueToast();
    void set(State state);

    const std::shared_ptr<Pauses> m_pauses;
    State m_state;
    bool m_isToastHeld = false;
    /// Whether the time of a toast with a button is over and it only stays because it is held.
    bool m_isToastOverdue = false;
};

} // namespace sonavo
