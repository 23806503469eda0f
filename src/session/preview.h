#pragma once

#include "actions/desktop.h"
#include "actions/preview_player.h"
#include "model/song.h"

#include <QObject>

#include <memory>
#include <optional>

namespace sonavo {

/// Plays one song at a time, so that the user can listen before deciding. Main thread only.
class Preview : public QObject
{
    Q_OBJECT

public:
    struct State
    {
        /// The song being previewed. It stays after it has been played to its end.
        std::optional<Song> song;
        /// Comes at the next turn of the event loop after the song.
        PreviewPlayer *player = nullptr;

        friend bool operator==(const State &, const State &) = default;
    };

    /// @param desktop must outlive the preview
    explicit Preview(Desktop &desktop, QObject *parent = nullptr);
    /// Destroys the player without announcing it.
    ~Preview() override;

    [[nodiscard]] const State &state() const { return m_state; }
    /// Whether this song, known by its id, is the one being previewed.
    [[nodiscard]] bool isOf(const Song &song) const;

    /// Plays a song from its beginning, in place of any other; stops it when it is the one being previewed.
    /// @param song by value: a listener may destroy the caller's meanwhile
    void toggle(Song song);
    /// Plays a song from the whole second at which the one before it is, to compare the two. From its
    /// beginning where fewer than two seconds of it are left then. Does what toggle() does when no other song
    /// is being previewed.
    void compare(Song song);
    /// Seeks to the second that a click at `x` in a row of `width` means; see seekTarget(). Does nothing
    /// without a player.
    void seek(double x, double width);
    /// Silences the player at once, with what is still on its way to the loudspeaker.
    void mute();
    /// Stops the sound and closes the file.
    void stop();

Q_SIGNALS:
    void changed(const sonavo::Preview::State &before);

private:
    void play(Song song, qint64 second);
    void start(const Song &song, qint64 second);
    void set(State state);

    Desktop &m_desktop;
    State m_state;
    std::unique_ptr<PreviewPlayer> m_player;
    /// Where it was told to start.
    qint64 m_startSecond = 0;
    /// Incremented by every toggle and stop, so that a queued start can tell that it is outdated.
    quint64 m_number = 0;
};

} // namespace sonavo
