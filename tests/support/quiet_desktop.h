#pragma once

#include "actions/desktop.h"

namespace sonavo {

/// A desktop on which nothing is chosen, shown, heard or moved; tests override what they are about.
class QuietDesktop : public Desktop
{
public:
    [[nodiscard]] QList<QUrl> chooseMusic() override { return {}; }
    [[nodiscard]] QString chooseFolder(const QString &, const QString &) override { return {}; }
    [[nodiscard]] std::optional<Failure> moveToTrash(const QString &) override
    {
        return Failure{QStringLiteral("no Trash")};
    }
    void copyToClipboard(const QString &) override {}
    void showInFileViewer(const QString &) override {}
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &) override { return nullptr; }
};

} // namespace sonavo
