#pragma once

#include "actions/desktop.h"

namespace sonavo {

/// A desktop without a user, for reports in a terminal: nothing is chosen, shown or played.
class HeadlessDesktop : public Desktop
{
public:
    [[nodiscard]] QList<QUrl> chooseMusic() override { return {}; }
    [[nodiscard]] QString chooseFolder(const QString &, const QString &) override { return {}; }
    [[nodiscard]] QString chooseReportFile(const QString &) override { return {}; }
    void copyToClipboard(const QString &) override {}
    [[nodiscard]] QList<QUrl> copiedFiles() override { return {}; }
    void showInFileViewer(const QString &, std::function<void()>) override {}
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &) override { return nullptr; }
};

} // namespace sonavo
