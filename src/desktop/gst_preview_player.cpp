#include "desktop/gst_preview_player.h"

#include "desktop/audio_pipeline.h"
#include "desktop/audio_thread.h"

#include <algorithm>
#include <utility>

namespace sonavo {

GstPreviewPlayer::GstPreviewPlayer(const QString &path)
    : m_pipeline(new AudioPipeline(path, m_position))
{
    QThread &thread = audioThread();
    m_pipeline->moveToThread(&thread);
    connect(&thread, &QThread::finished, m_pipeline, &QObject::deleteLater);
    post([](AudioPipeline &pipeline) { pipeline.load(); });
}

GstPreviewPlayer::~GstPreviewPlayer()
{
    if (m_pipeline)
        m_pipeline->deleteLater();
}

void GstPreviewPlayer::play()
{
    post([](AudioPipeline &pipeline) { pipeline.play(); });
}

void GstPreviewPlayer::pause()
{
    post([](AudioPipeline &pipeline) { pipeline.pause(); });
}

void GstPreviewPlayer::setVolume(double volume)
{
    post([volume = std::clamp(volume, 0.0, 1.0)](AudioPipeline &pipeline) { pipeline.setVolume(volume); });
}

void GstPreviewPlayer::seek(qint64 seconds)
{
    *m_position = static_cast<double>(std::max<qint64>(seconds, 0));
    post([seconds](AudioPipeline &pipeline) { pipeline.seek(seconds); });
}

double GstPreviewPlayer::position() const
{
    return *m_position;
}

void GstPreviewPlayer::releaseItem()
{
    post([](AudioPipeline &pipeline) { pipeline.close(); });
}

void GstPreviewPlayer::post(std::function<void(AudioPipeline &)> command)
{
    if (m_pipeline) {
        QMetaObject::invokeMethod(
            m_pipeline, [pipeline = m_pipeline.get(), command = std::move(command)] { command(*pipeline); },
            Qt::QueuedConnection);
    }
}

} // namespace sonavo
