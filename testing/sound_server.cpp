#include "testing/sound_server.h"

#include <QLocalSocket>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <span>
#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int TIMEOUT_MS = 20'000;

using Sample = std::int16_t;
constexpr int SAMPLE_RATE = 44'100;
constexpr std::size_t BLOCK_SAMPLES = 2048;
constexpr double BLOCK_SECONDS = static_cast<double>(BLOCK_SAMPLES) / SAMPLE_RATE;
constexpr auto HALF_A_SECOND = static_cast<std::size_t>(0.5 / BLOCK_SECONDS) + 1;

/// Hz, by the distance between the zero crossings where the wave rises.
double pitch(std::span<const Sample> samples)
{
    std::vector<double> crossings;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const double before = samples[i - 1];
        const double after = samples[i];
        if (before < 0 && after >= 0)
            crossings.push_back(static_cast<double>(i) - after / (after - before));
    }
    if (crossings.size() < 2)
        return 0;
    return static_cast<double>(crossings.size() - 1) * SAMPLE_RATE / (crossings.back() - crossings.front());
}

void startProcess(QProcess &process, const QString &program, const QStringList &arguments,
                  const std::function<bool()> &isReady)
{
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    const auto isReadyOrEnded = [&] { return isReady() || process.state() == QProcess::NotRunning; };
    if (!QTest::qWaitFor(isReadyOrEnded, TIMEOUT_MS) || process.state() == QProcess::NotRunning)
        throw std::runtime_error(program.toStdString() +
                                 " cannot be used: " + process.readAllStandardError().toStdString());
}

/// The socket of a server exists before the server listens on it.
bool acceptsConnections(const QString &socketPath)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    return socket.waitForConnected();
}

} // namespace

SoundServer::SoundServer()
{
    const QString socket = m_folder.filePath(u"native"_s);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s,
                                u"PULSE_RUNTIME_PATH"_s, u"PULSE_STATE_PATH"_s})
        environment.insert(name, m_folder.path());
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    m_server.setProcessEnvironment(environment);
    // Without norewinds, sound that the sink takes back when it stops is recorded nevertheless.
    startProcess(m_server, u"pulseaudio"_s,
                 {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                  u"--disable-shm=yes"_s, u"--log-level=error"_s,
                  u"--load=module-null-sink sink_name=quiet norewinds=1 rate=%1"_s.arg(SAMPLE_RATE),
                  u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket},
                 [&] { return acceptsConnections(socket); });
    qputenv("PULSE_SERVER", "unix:" + socket.toLocal8Bit());

    QObject::connect(&m_recorder, &QProcess::readyReadStandardOutput, &m_recorder,
                     [this] { analyzeRecording(); });
    startProcess(m_recorder, u"parec"_s,
                 {u"--device=quiet.monitor"_s, u"--format=s16le"_s, u"--channels=1"_s,
                  u"--rate=%1"_s.arg(SAMPLE_RATE), u"--latency-msec=20"_s},
                 [this] { return !m_blocks.empty(); });
}

SoundServer::~SoundServer()
{
    for (QProcess *process : {&m_recorder, &m_server}) {
        process->kill();
        process->waitForFinished();
    }
}

void SoundServer::analyzeRecording()
{
    constexpr double LOUD = 0.03;
    m_recorded += m_recorder.readAllStandardOutput();
    std::array<Sample, BLOCK_SAMPLES> block{};
    for (; m_recorded.size() >= qsizetype{sizeof block}; m_recorded.remove(0, sizeof block)) {
        std::memcpy(block.data(), m_recorded.constData(), sizeof block);
        const auto [lowest, highest] = std::minmax_element(block.begin(), block.end());
        const double peak = std::max(-1.0 * *lowest, 1.0 * *highest) / std::numeric_limits<Sample>::max();
        m_blocks.push_back({peak > LOUD, (pitch(block) - PITCH_AT_START) / PITCH_PER_SECOND});
        m_peak = std::max(m_peak, peak);
    }
}

std::vector<double> SoundServer::starts() const
{
    constexpr double MAX_ERROR = 0.1; // seconds, of a measured position
    constexpr double MIN_JUMP = 0.3;  // seconds
    constexpr std::size_t MIN_TONE_BLOCKS = 5;

    std::vector<double> starts;
    std::size_t first = 0; // block of this tone
    std::size_t last = 0;  // block of the tone before
    for (std::size_t i = 1; i <= m_blocks.size(); ++i) {
        if (i < m_blocks.size() && m_blocks[i].isLoud && m_blocks[i - 1].isLoud &&
            std::abs(m_blocks[i].position - m_blocks[i - 1].position - BLOCK_SECONDS) < MAX_ERROR)
            continue;
        if (i - first >= MIN_TONE_BLOCKS) {
            const double moved = m_blocks[first].position - m_blocks[last].position;
            const double elapsed = static_cast<double>(first - last) * BLOCK_SECONDS;
            if (starts.empty() || (std::abs(moved) > MIN_JUMP && std::abs(moved - elapsed) > MIN_JUMP))
                starts.push_back(m_blocks[first].position);
            last = i - 1;
        }
        first = i;
    }
    return starts;
}

bool SoundServer::becomesSilent() const
{
    return QTest::qWaitFor([this] { return staysSilent(); }, TIMEOUT_MS);
}

bool SoundServer::staysSilent() const
{
    const std::size_t from = m_blocks.size();
    const auto isLoud = [&] {
        return std::any_of(m_blocks.begin() + static_cast<std::ptrdiff_t>(from), m_blocks.end(),
                           std::mem_fn(&Block::isLoud));
    };
    const auto isDone = [&] { return isLoud() || m_blocks.size() - from >= HALF_A_SECOND; };
    return QTest::qWaitFor(isDone, TIMEOUT_MS) && !isLoud();
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
