#include "desktop/system_desktop.h"

#include "desktop/file_dialogs.h"
#include "desktop/gst_preview_player.h"

#include <QClipboard>
#include <QGuiApplication>

namespace sonavo {

QList<QUrl> SystemDesktop::chooseMusic()
{
    return runMusicDialog(m_musicFolder);
}

QString SystemDesktop::chooseFolder(const QString &message, const QString &prompt)
{
    return runFolderDialog(message, prompt, m_chosenFolder);
}

QString SystemDesktop::chooseReportFile(const QString &name)
{
    return runReportDialog(name, m_reportFolder);
}

void SystemDesktop::copyToClipboard(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void SystemDesktop::showInFileViewer(const QString &path)
{
    m_fileViewer.show(path);
}

std::unique_ptr<PreviewPlayer> SystemDesktop::openPreview(const QString &path)
{
    return std::make_unique<GstPreviewPlayer>(path);
}

} // namespace sonavo
