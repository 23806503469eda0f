#pragma once

#include "actions/failure.h"
#include "actions/preview_player.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace sonavo {

/// What the session needs of the desktop around it. Main thread only.
class Desktop
{
public:
    Desktop() = default;
    virtual ~Desktop() = default;
    Q_DISABLE_COPY_MOVE(Desktop)

    /// Lets the user choose audio files and folders, several at once. Returns when they have decided; the
    /// event loop runs meanwhile, so the session may have been cleared by then.
    /// @return file URLs; empty when the user cancelled
    [[nodiscard]] virtual QList<QUrl> chooseMusic() = 0;

    /// Lets the user choose one folder, in the same way.
    /// @param message what the folder is for
    /// @param prompt text of the button that confirms
    /// @return absolute path; empty when the user cancelled
    [[nodiscard]] virtual QString chooseFolder(const QString &message, const QString &prompt) = 0;

    /// Lets the user choose a file to save a report into, in the same way, and asks before one is replaced.
    /// @param name proposed name, without an extension
    /// @return absolute path, which ends in ".csv" or ".json"; empty when the user cancelled
    [[nodiscard]] virtual QString chooseReportFile(const QString &name) = 0;

    /// Replaces what is on the clipboard by a plain text.
    virtual void copyToClipboard(const QString &text) = 0;

    /// The files and folders that were copied in a file manager.
    /// @return file URLs; empty when the clipboard holds something else
    [[nodiscard]] virtual QList<QUrl> copiedFiles() = 0;

    /// Shows a file, selected, in the system's file viewer. Returns at once.
    /// @param onFailure called later, on the main thread, when nothing could show it
    virtual void showInFileViewer(const QString &path, std::function<void()> onFailure) = 0;

    /// A player of its own for one file; it is silent until it is told to play.
    [[nodiscard]] virtual std::unique_ptr<PreviewPlayer> openPreview(const QString &path) = 0;
};

} // namespace sonavo
