#include "testing/sound_server.h"

#include <QFileInfo>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int PATIENCE_MS = 20'000;

constexpr int SAMPLE_RATE = 44'100;
constexpr std::size_t FRAMES_PER_MOMENT = 2048;
constexpr double SECONDS_PER_MOMENT = static_cast<double>(FRAMES_PER_MOMENT) / SAMPLE_RATE;
constexpr auto HALF_A_SECOND = static_cast<std::size_t>(0.5 / SECONDS_PER_MOMENT) + 1;
constexpr int LOUD = 1000;

struct Frame
{
    std::array<std::int16_t, 2> samples;
};

bool isLoud(std::int16_t sample)
{
    return std::abs(sample) > LOUD;
}

bool isLoudOnBoth(const Frame &frame)
{
    return isLoud(frame.samples[SoundServer::Left]) && isLoud(frame.samples[SoundServer::Right]);
}

/// Hz, by counting how often the wave rises through zero.
double pitch(std::span<const Frame> frames, std::size_t channel)
{
    int rises = 0;
    double first = 0;
    double last = 0;
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const double before = frames[i - 1].samples[channel];
        const double after = frames[i].samples[channel];
        if (before >= 0 || after < 0)
            continue;
        last = static_cast<double>(i) - after / (after - before);
        if (rises++ == 0)
            first = last;
    }
    return rises < 2 ? 0 : (rises - 1) * SAMPLE_RATE / (last - first);
}

void keepFromOutliving(QProcess &process)
{
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

} // namespace

SoundServer::SoundServer()
{
    startServer();
    startRecording();
}

SoundServer::~SoundServer()
{
    for (QProcess *process : {&m_recorder, &m_server}) {
        process->kill();
        process->waitForFinished();
    }
}

void SoundServer::startServer()
{
    const QString socket = m_folder.filePath(u"native"_s);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s,
                                u"PULSE_RUNTIME_PATH"_s, u"PULSE_STATE_PATH"_s})
        environment.insert(name, m_folder.path());
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    m_server.setProcessEnvironment(environment);
    keepFromOutliving(m_server);
    // A sink that takes back what it has played would be recorded wrongly.
    m_server.start(u"pulseaudio"_s,
                   {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                    u"--disable-shm=yes"_s, u"--log-level=error"_s,
                    u"--load=module-null-sink sink_name=quiet norewinds=1 rate=%1"_s.arg(SAMPLE_RATE),
                    u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket});
    if (!QTest::qWaitFor(
            [&] { return QFileInfo::exists(socket) || m_server.state() == QProcess::NotRunning; },
            PATIENCE_MS) ||
        m_server.state() != QProcess::Running)
        throw std::runtime_error("pulseaudio cannot be started: " +
                                 m_server.readAllStandardError().toStdString());
    qputenv("PULSE_SERVER", "unix:" + socket.toLocal8Bit());
}

void SoundServer::startRecording()
{
    QObject::connect(&m_recorder, &QProcess::readyReadStandardOutput, &m_recorder,
                     [this] { takeRecorded(); });
    keepFromOutliving(m_recorder);
    m_recorder.start(u"parec"_s, {u"--device=quiet.monitor"_s, u"--format=s16le"_s, u"--channels=2"_s,
                                  u"--rate=%1"_s.arg(SAMPLE_RATE), u"--latency-msec=20"_s});
    if (!QTest::qWaitFor([&] { return !m_moments[Left].empty(); }, PATIENCE_MS))
        throw std::runtime_error("nothing can be recorded: " +
                                 m_recorder.readAllStandardError().toStdString());
}

void SoundServer::takeRecorded()
{
    constexpr qsizetype BYTES_PER_MOMENT = FRAMES_PER_MOMENT * sizeof(Frame);
    m_recorded += m_recorder.readAllStandardOutput();
    qsizetype used = 0;
    for (; m_recorded.size() - used >= BYTES_PER_MOMENT; used += BYTES_PER_MOMENT) {
        std::array<Frame, FRAMES_PER_MOMENT> frames{};
        std::memcpy(frames.data(), m_recorded.constData() + used, sizeof frames);
        for (const Channel channel : {Left, Right}) {
            const bool isHeard = std::any_of(frames.begin(), frames.end(), [=](const Frame &frame) {
                return isLoud(frame.samples[channel]);
            });
            m_moments[channel].push_back(
                {isHeard, (pitch(frames, channel) - PITCH_AT_START) / PITCH_PER_SECOND});
        }
        m_hasHeardBothAtOnce |= std::any_of(frames.begin(), frames.end(), isLoudOnBoth);
    }
    m_recorded.remove(0, used);
}

std::vector<double> SoundServer::starts(Channel channel) const
{
    // Seconds by which a measurement can be wrong, and by which a song that goes on can seem to have moved.
    constexpr double INACCURACY = 0.1;
    constexpr double GAP = 0.3;
    constexpr std::size_t SHORTEST_TONE = 5;

    std::vector<double> starts;
    const std::vector<Moment> &moments = m_moments[channel];
    double lastPlace = 0;
    std::size_t lastMoment = 0;
    for (std::size_t i = 0; i < moments.size();) {
        std::size_t end = i + 1;
        while (end < moments.size() && moments[i].isLoud && moments[end].isLoud &&
               std::abs(moments[end].place - moments[end - 1].place - SECONDS_PER_MOMENT) < INACCURACY)
            ++end;
        if (end - i >= SHORTEST_TONE) {
            const double place = moments[i].place;
            const double passed = static_cast<double>(i - lastMoment) * SECONDS_PER_MOMENT;
            if (starts.empty() ||
                (std::abs(place - lastPlace) > GAP && std::abs(place - lastPlace - passed) > GAP))
                starts.push_back(place);
            lastPlace = moments[end - 1].place;
            lastMoment = end - 1;
        }
        i = end;
    }
    return starts;
}

bool SoundServer::becomesSilent() const
{
    std::size_t from = momentCount();
    return QTest::qWaitFor(
        [&] {
            for (; from < momentCount() && !isSilentFrom(from); ++from) {
            }
            return momentCount() - from >= HALF_A_SECOND;
        },
        PATIENCE_MS);
}

bool SoundServer::staysSilent() const
{
    const std::size_t from = momentCount();
    return QTest::qWaitFor([&] { return momentCount() - from >= HALF_A_SECOND; }, PATIENCE_MS) &&
           isSilentFrom(from);
}

bool SoundServer::isSilentFrom(std::size_t moment) const
{
    return std::all_of(m_moments.begin(), m_moments.end(), [=](const std::vector<Moment> &moments) {
        return std::none_of(moments.begin() + static_cast<std::ptrdiff_t>(moment), moments.end(),
                            [](const Moment &m) { return m.isLoud; });
    });
}

void startSoundOrSkip(std::optional<SoundServer> &server)
{
    try {
        server.emplace();
    } catch (const std::runtime_error &error) {
        if (qEnvironmentVariableIsSet("SONAVO_REQUIRE_SOUND"))
            FAIL() << error.what();
        GTEST_SKIP() << error.what();
    }
}

} // namespace sonavo
