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

    /// Positions in seconds at which a song was started or to which it jumped. Pauses, and noise over the
    /// tone, do not count as jumps.
    [[nodiscard]] std::vector<double> starts() const;

    /// Waits until nothing has been heard for half a second.
    [[nodiscard]] bool becomesSilent() const;

    /// Listens for half a second.
    /// @return whether nothing was heard
    [[nodiscard]] bool staysSilent() const;

    /// The highest amplitude so far, 0.0 to 1.0.
    [[nodiscard]] double peak() const { return m_peak; }

private:
    /// A fraction of a second of the recording.
    struct Block
    {
        bool isLoud = false;
        /// In the song, in seconds; meaningless without a tone.
        double position = 0;
    };

    void analyzeRecording();

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_recorder;
    QByteArray m_recorded;
    std::vector<Block> m_blocks;
    double m_peak = 0;
};

/// Starts a sound server. Without one the test is skipped, or fails if SONAVO_REQUIRE_SOUND is set.
void startSoundOrSkip(std::optional<SoundServer> &server);

} // namespace sonavo
