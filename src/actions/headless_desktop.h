#pragma once

#include "actions/desktop.h"

namespace sonavo {

/// The desktop of a run in the terminal: there is nobody to choose, to look or to listen, and nothing that
/// could move a file.
class HeadlessDesktop : public Desktop
{
public:
    [[nodiscard]] QList<QUrl> chooseMusic() override { return {}; }
    [[nodiscard]] QString chooseFolder(const QString &, const QString &) override { return {}; }
    [[nodiscard]] std::optional<Failure> moveToTrash(const QString &) override
    {
        return Failure{QStringLiteral("There is no Trash in the terminal.")};
    }
    void copyToClipboard(const QString &) override {}
    void showInFileViewer(const QString &) override {}
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &) override { return nullptr; }
};

} // namespace sonavo
