#pragma once

#include "actions/headless_desktop.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace sonavo {

/// Records its calls, as "path: play".
class RecordingPlayer final : public PreviewPlayer
{
public:
    RecordingPlayer(std::string name, std::vector<std::string> &calls)
        : m_name(std::move(name))
        , m_calls(calls)
    {}
    ~RecordingPlayer() override { record("gone"); }
    Q_DISABLE_COPY_MOVE(RecordingPlayer)

    void play() override { record("play"); }
    void pause() override { record("pause"); }
    void setVolume(double volume) override { record("volume " + std::to_string(volume).substr(0, 3)); }
    void seek(qint64 seconds) override
    {
        m_position = static_cast<double>(seconds);
        record("seek " + std::to_string(seconds));
    }
    [[nodiscard]] double position() const override { return m_position; }
    void releaseItem() override { record("release"); }

private:
    void record(const std::string &call) { m_calls.push_back(m_name + ": " + call); }

    std::string m_name;
    std::vector<std::string> &m_calls;
    double m_position = 0.0;
};

/// A desktop whose user chooses what the test says.
class FakeDesktop final : public HeadlessDesktop
{
public:
    QList<QUrl> choice;
    /// Called while a dialog for music is open.
    std::function<void()> onChoice = [] {};
    std::function<QString()> onChooseFolder = [] { return QString(); };
    std::function<QString()> onChooseReportFile = [] { return QString(); };
    QString clipboard;
    QList<QUrl> copied;
    bool showsFiles = true;
    /// Folder dialogs, files shown in the file viewer and calls of players, in order.
    std::vector<std::string> calls;

    [[nodiscard]] QList<QUrl> chooseMusic() override
    {
        onChoice();
        return choice;
    }
    [[nodiscard]] QString chooseFolder(const QString &message, const QString &prompt) override
    {
        calls.push_back(message.toStdString() + " / " + prompt.toStdString());
        return onChooseFolder();
    }
    [[nodiscard]] QString chooseReportFile(const QString &) override { return onChooseReportFile(); }
    void copyToClipboard(const QString &text) override { clipboard = text; }
    [[nodiscard]] QList<QUrl> copiedFiles() override { return copied; }
    void showInFileViewer(const QString &path, std::function<void()> onFailure) override
    {
        calls.push_back("show " + path.toStdString());
        if (!showsFiles)
            onFailure();
    }
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &path) override
    {
        return std::make_unique<RecordingPlayer>(path.toStdString(), calls);
    }
    [[nodiscard]] std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }
};

} // namespace sonavo
