#pragma once

#include <QObject>

namespace sonavo {

/// Plays one file once, from its beginning. A file that cannot be opened or decoded, or a computer without
/// sound, is not an error: there is only silence. No call waits for the sound. Main thread only.
class PreviewPlayer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Starts the sound, or goes on where it was paused.
    virtual void play() = 0;

    /// Stops the sound where it is.
    virtual void pause() = 0;

    /// @param volume from 0.0, silence, to 1.0, the sound as it was recorded and the initial value
    virtual void setVolume(double volume) = 0;

    /// Continues from exactly this second of the song, even after the song has ended. Until the file is
    /// loaded, the position is remembered; the last call wins.
    /// @param seconds below zero means the beginning, beyond the end the end
    virtual void seek(qint64 seconds) = 0;

    /// The second of the song that is heard now, or from which it will go on. Up to a tenth of a second late.
    [[nodiscard]] virtual double position() const = 0;

    /// Closes the file for good.
    virtual void releaseItem() = 0;
};

} // namespace sonavo
