#include "desktop/system_desktop.h"

namespace sonavo {

QList<QUrl> SystemDesktop::chooseMusic()
{
    return {};
}

QString SystemDesktop::chooseFolder(const QString &, const QString &)
{
    return {};
}

std::optional<Failure> SystemDesktop::moveToTrash(const QString &)
{
    return Failure{QStringLiteral("not yet")};
}

void SystemDesktop::copyToClipboard(const QString &)
{}

void SystemDesktop::showInFileViewer(const QString &)
{}

std::unique_ptr<PreviewPlayer> SystemDesktop::openPreview(const QString &)
{
    return nullptr;
}

} // namespace sonavo
