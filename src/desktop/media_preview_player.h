#pragma once

#include "actions/preview_player.h"

#include <QPointer>
#include <QString>

#include <functional>

namespace sonavo {

class Playback;

/// Plays a song through GStreamer, in the sound thread. Can be destroyed at any moment.
class MediaPreviewPlayer final : public PreviewPlayer
{
public:
    /// Starts to load the file.
    explicit MediaPreviewPlayer(const QString &path);
    ~MediaPreviewPlayer() override;

    void play() override;
    void pause() override;
    void setVolume(double volume) override;
    void seek(qint64 seconds) override;
    void releaseItem() override;

private:
    void tell(std::function<void(Playback &playback)> wish);

    /// Lives in the sound thread and ends with it.
    QPointer<Playback> m_playback;
};

} // namespace sonavo
