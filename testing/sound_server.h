#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <optional>
#include <vector>

namespace sonavo {

/// Test songs are a tone whose pitch tells the position: PITCH_AT_START Hz, and PITCH_PER_SECOND more each
/// second.
inline constexpr double PITCH_AT_START = 400;
inline constexpr double PITCH_PER_SECOND = 50;

/// A private PulseAudio server without devices, which this process and its children use from then on, and a
/// recording of all that it plays. The recording grows while the event loop runs.
class SoundServer
{
public:
    /// Throws std::runtime_error where PulseAudio cannot be started.
    SoundServer();
    ~SoundServer();
    Q_DISABLE_COPY_MOVE(SoundServer)

    /// Positions in seconds at which a song was started or to which it jumped. Pauses are no jumps.
    [[nodiscard]] const std::vector<double> &starts() const { return m_starts; }

    /// Waits until nothing has been heard for half a second.
    [[nodiscard]] bool becomesSilent() const;

    /// Listens for half a second.
    /// @return whether nothing was heard
    [[nodiscard]] bool staysSilent() const;

    /// The highest amplitude so far, 0.0 to 1.0.
    [[nodiscard]] double peak() const { return m_peak; }

private:
    void analyzeRecording();
    /// @param position in the song, in seconds
    void addTone(double position);

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_recorder;
    int m_blocks = 0;
    int m_loudBlocks = 0;
    double m_peak = 0;
    /// How many of the last blocks continue each other.
    int m_toneBlocks = 0;
    double m_position = 0;
    /// Where the tone before was last heard.
    std::optional<double> m_lastHeard;
    std::vector<double> m_starts;
};

} // namespace sonavo
