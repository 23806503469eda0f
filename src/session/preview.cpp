#include "session/preview.h"

#include "actions/click_to_seek.h"

#include <QPointer>

#include <cmath>
#include <utility>

namespace sonavo {

Preview::Preview(Desktop &desktop, QObject *parent)
    : QObject(parent)
    , m_desktop(desktop)
{}

Preview::~Preview() = default;

bool Preview::isOf(const Song &song) const
{
    return m_state.song && m_state.song->id == song.id;
}

void Preview::toggle(Song song)
{
    const bool wasPlaying = isOf(song);
    stop();
    if (!wasPlaying)
        play(std::move(song), 0);
}

void Preview::compare(Song song)
{
    if (!m_state.song || isOf(song)) {
        toggle(std::move(song));
        return;
    }
    const double position = m_player ? m_player->position() : static_cast<double>(m_startSecond);
    constexpr double LEAST_LEFT = 2.0;
    const double second = position + LEAST_LEFT <= song.duration ? std::floor(position) : 0.0;
    stop();
    play(std::move(song), static_cast<qint64>(second));
}

void Preview::play(Song song, qint64 second)
{
    m_startSecond = second;
    const auto startUnlessStopped = [this, song, second, number = ++m_number] {
        if (m_number == number)
            start(song, second);
    };
    QMetaObject::invokeMethod(this, startUnlessStopped, Qt::QueuedConnection);
    set({.song = std::move(song), .player = nullptr});
}

void Preview::start(const Song &song, qint64 second)
{
    m_player = m_desktop.openPreview(song.path);
    const QPointer<PreviewPlayer> player(m_player.get());
    set({.song = song, .player = m_player.get()});
    if (player && second > 0)
        player->seek(second);
    if (player)
        player->play();
}

void Preview::seek(double x, double width)
{
    if (!m_player)
        return;
    if (const auto second = seekTarget(x, width, m_state.song->duration))
        m_player->seek(*second);
}

void Preview::mute()
{
    if (m_player)
        m_player->setVolume(0.0);
}

void Preview::stop()
{
    ++m_number;
    const std::unique_ptr<PreviewPlayer> player = std::move(m_player);
    if (player) {
        player->pause();
        player->releaseItem();
    }
    set({});
}

void Preview::set(State state)
{
    if (state == m_state)
        return;
    const State before = std::exchange(m_state, std::move(state));
    Q_EMIT changed(before);
}

} // namespace sonavo
