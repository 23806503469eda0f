#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <array>
#include <optional>
#include <vector>

namespace sonavo {

/// A rising tone, whose pitch tells the place in the song: PITCH_AT_START Hz and PITCH_PER_SECOND more each
/// second.
inline constexpr double PITCH_AT_START = 400;
inline constexpr double PITCH_PER_SECOND = 50;

/// A private PulseAudio server without devices, which this process and its children use from then on, and a
/// recording of all that is played on it. The recording grows while the event loop runs.
class SoundServer
{
public:
    enum Channel
    {
        Left,
        Right
    };

    /// Starts the server; throws std::runtime_error when that is not possible.
    SoundServer();
    ~SoundServer();
    Q_DISABLE_COPY_MOVE(SoundServer)

    /// The places, in seconds, of a rising tone from which it was played: where it began, and wherever it
    /// went on from other than where it had been. Silence and noise in between make no difference.
    [[nodiscard]] std::vector<double> starts(Channel channel) const;

    /// Waits, a long while at most, until nothing has been heard for half a second.
    [[nodiscard]] bool becomesSilent() const;

    /// Listens for half a second.
    /// @return whether nothing was heard
    [[nodiscard]] bool staysSilent() const;

    /// Whether both channels were ever heard at once.
    [[nodiscard]] bool hasHeardBothAtOnce() const { return m_hasHeardBothAtOnce; }

private:
    /// What was recorded in a fraction of a second.
    struct Moment
    {
        bool isLoud = false;
        /// Where the song is, by the pitch; meaningless where there is no tone.
        double place = 0;
    };

    void startServer();
    void startRecording();
    void takeRecorded();
    [[nodiscard]] std::size_t momentCount() const { return m_moments[Left].size(); }
    [[nodiscard]] bool isSilentFrom(std::size_t moment) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_recorder;
    QByteArray m_recorded;
    std::array<std::vector<Moment>, 2> m_moments;
    bool m_hasHeardBothAtOnce = false;
};

/// Starts a sound server, without which the test is skipped, or fails where sound is required of the machine.
void startSoundOrSkip(std::optional<SoundServer> &server);

} // namespace sonavo
