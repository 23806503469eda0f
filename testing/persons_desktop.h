#pragma once

#include "actions/headless_desktop.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace sonavo {

/// Writes down what it is told to do, as "path: play".
class NotingPlayer final : public PreviewPlayer
{
public:
    NotingPlayer(std::string name, std::vector<std::string> &calls)
        : m_name(std::move(name))
        , m_calls(calls)
    {}
    ~NotingPlayer() override { note("gone"); }
    Q_DISABLE_COPY_MOVE(NotingPlayer)

    void play() override { note("play"); }
    void pause() override { note("pause"); }
    void setVolume(double volume) override { note("volume " + std::to_string(volume).substr(0, 3)); }
    void seek(qint64 seconds) override { note("seek " + std::to_string(seconds)); }
    void releaseItem() override { note("release"); }

private:
    void note(const std::string &call) { m_calls.push_back(m_name + ": " + call); }

    std::string m_name;
    std::vector<std::string> &m_calls;
};

/// A desktop whose user chooses what the test says.
class PersonsDesktop : public HeadlessDesktop
{
public:
    QList<QUrl> choice;
    std::function<void()> onChoice = [] {};
    std::function<QString()> onChooseFolder = [] { return QString(); };
    QString clipboard;
    /// What was shown in the file viewer and what was done with players, in order.
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
    void copyToClipboard(const QString &text) override { clipboard = text; }
    void showInFileViewer(const QString &path) override { calls.push_back("show " + path.toStdString()); }
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &path) override
    {
        return std::make_unique<NotingPlayer>(path.toStdString(), calls);
    }
    [[nodiscard]] std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }
};

} // namespace sonavo
