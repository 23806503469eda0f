#include "desktop/system_desktop.h"

#include "desktop/file_dialogs.h"
#include "desktop/gst_preview_player.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <utility>

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

QList<QUrl> SystemDesktop::copiedFiles()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QList<QUrl> urls = data ? data->urls() : QList<QUrl>();
    urls.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    return urls;
}

void SystemDesktop::showInFileViewer(const QString &path, std::function<void()> onFailure)
{
    m_fileViewer.show(path, std::move(onFailure));
}

std::unique_ptr<PreviewPlayer> SystemDesktop::openPreview(const QString &path)
{
    return std::make_unique<GstPreviewPlayer>(path);
}

} // namespace sonavo
