#include "desktop/system_desktop.h"

#include "desktop/trash.h"

#include <QClipboard>
#include <QGuiApplication>

namespace sonavo {

QList<QUrl> SystemDesktop::chooseMusic()
{
    return {};
}

QString SystemDesktop::chooseFolder(const QString &, const QString &)
{
    return {};
}

std::optional<Failure> SystemDesktop::moveToTrash(const QString &path)
{
    return sonavo::moveToTrash(path);
}

void SystemDesktop::copyToClipboard(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

void SystemDesktop::showInFileViewer(const QString &path)
{
    m_fileViewer.show(path);
}

std::unique_ptr<PreviewPlayer> SystemDesktop::openPreview(const QString &)
{
    return nullptr;
}

} // namespace sonavo
