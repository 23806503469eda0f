#pragma once

#include "actions/desktop.h"
#include "desktop/file_viewer.h"

namespace sonavo {

/// The user's real desktop. Needs a QApplication; main thread only.
class SystemDesktop final : public Desktop
{
public:
    [[nodiscard]] QList<QUrl> chooseMusic() override;
    [[nodiscard]] QString chooseFolder(const QString &message, const QString &prompt) override;
    [[nodiscard]] QString chooseReportFile(const QString &name) override;
    void copyToClipboard(const QString &text) override;
    [[nodiscard]] QList<QUrl> copiedFiles() override;
    void showInFileViewer(const QString &path, std::function<void()> onFailure) override;
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &path) override;

private:
    QString m_musicFolder;
    QString m_chosenFolder;
    QString m_reportFolder;
    FileViewer m_fileViewer;
};

} // namespace sonavo
