#pragma once

#include "actions/preview_player.h"

#include <QPointer>
#include <QString>

#include <functional>

namespace sonavo {

class AudioPipeline;

/// Plays a song through GStreamer. Every call is posted to the audio thread and returns at once. Main thread
/// only; may be destroyed at any time.
class GstPreviewPlayer final : public PreviewPlayer
{
public:
    /// Starts to load the file.
    explicit GstPreviewPlayer(const QString &path);
    ~GstPreviewPlayer() override;

    void play() override;
    void pause() override;
    void setVolume(double volume) override;
    void seek(qint64 seconds) override;
    void releaseItem() override;

private:
    void post(std::function<void(AudioPipeline &)> command);

    /// Lives in the audio thread and ends with it at the latest.
    QPointer<AudioPipeline> m_pipeline;
};

} // namespace sonavo
