#pragma once

#include "actions/preview_player.h"

#include <QPointer>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

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
    [[nodiscard]] double position() const override;
    void releaseItem() override;

private:
    void post(std::function<void(AudioPipeline &)> command);

    const std::shared_ptr<std::atomic<double>> m_position = std::make_shared<std::atomic<double>>(0.0);
    /// Lives in the audio thread and ends with it at the latest.
    QPointer<AudioPipeline> m_pipeline;
};

} // namespace sonavo
