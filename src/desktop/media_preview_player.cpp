#include "desktop/media_preview_player.h"

#include "desktop/playback.h"
#include "desktop/sound_thread.h"

#include <algorithm>

namespace sonavo {

MediaPreviewPlayer::MediaPreviewPlayer(const QString &path)
    : m_playback(new Playback(path))
{
    QThread &thread = soundThread();
    m_playback->moveToThread(&thread);
    connect(&thread, &QThread::finished, m_playback, &QObject::deleteLater);
    tell([](Playback &playback) { playback.load(); });
}

MediaPreviewPlayer::~MediaPreviewPlayer()
{
    if (m_playback)
        m_playback->deleteLater();
}

void MediaPreviewPlayer::play()
{
    tell([](Playback &playback) { playback.play(); });
}

void MediaPreviewPlayer::pause()
{
    tell([](Playback &playback) { playback.pause(); });
}

void MediaPreviewPlayer::setVolume(double volume)
{
    tell([volume = std::clamp(volume, 0.0, 1.0)](Playback &playback) { playback.setVolume(volume); });
}

void MediaPreviewPlayer::seek(qint64 seconds)
{
    tell([seconds](Playback &playback) { playback.seek(seconds); });
}

void MediaPreviewPlayer::releaseItem()
{
    tell([](Playback &playback) { playback.close(); });
}

void MediaPreviewPlayer::tell(std::function<void(Playback &)> wish)
{
    if (m_playback) {
        QMetaObject::invokeMethod(
            m_playback, [playback = m_playback.get(), wish = std::move(wish)] { wish(*playback); },
            Qt::QueuedConnection);
    }
}

} // namespace sonavo
