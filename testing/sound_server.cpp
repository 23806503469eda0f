#include "testing/sound_server.h"

#include <QLocalSocket>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <stdexcept>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int TIMEOUT_MS = 20'000;

constexpr int SAMPLE_RATE = 44'100;
using Block = std::array<std::int16_t, 2048>;
constexpr double BLOCK_SECONDS = 2048.0 / SAMPLE_RATE;
constexpr int HALF_A_SECOND = 11; // blocks

/// Hz, by the distance between the zero crossings where the wave rises.
double pitch(const Block &block)
{
    std::vector<std::size_t> crossings;
    for (std::size_t i = 1; i < block.size(); ++i) {
        if (block[i - 1] < 0 && block[i] >= 0)
            crossings.push_back(i);
    }
    if (crossings.size() < 2)
        return 0;
    return SAMPLE_RATE * static_cast<double>(crossings.size() - 1) /
           static_cast<double>(crossings.back() - crossings.front());
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

} // namespace

SoundServer::SoundServer()
{
    const QString socket = m_folder.filePath(u"native"_s);
    // The socket of a server exists before the server listens on it.
    const auto acceptsConnections = [&socket] {
        QLocalSocket connection;
        connection.connectToServer(socket);
        return connection.waitForConnected();
    };
    // Without norewinds, sound that the sink takes back when it stops is recorded nevertheless.
    startProcess(m_server, u"env"_s,
                 {u"-i"_s, u"HOME="_s + m_folder.path(), u"XDG_RUNTIME_DIR="_s + m_folder.path(),
                  u"pulseaudio"_s, u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s,
                  u"--exit-idle-time=-1"_s, u"--disable-shm=yes"_s, u"--log-level=error"_s,
                  u"--load=module-null-sink sink_name=quiet norewinds=1 rate=%1"_s.arg(SAMPLE_RATE),
                  u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket},
                 acceptsConnections);
    qputenv("PULSE_SERVER", "unix:" + socket.toLocal8Bit());

    QObject::connect(&m_recorder, &QProcess::readyReadStandardOutput, &m_recorder,
                     [this] { analyzeRecording(); });
    startProcess(m_recorder, u"parec"_s,
                 {u"--device=quiet.monitor"_s, u"--format=s16le"_s, u"--channels=1"_s,
                  u"--rate=%1"_s.arg(SAMPLE_RATE), u"--latency-msec=20"_s},
                 [this] { return m_blocks > 0; });
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
    constexpr double SILENCE = std::numeric_limits<double>::quiet_NaN();
    Block block{};
    while (m_recorder.bytesAvailable() >= qint64{sizeof block}) {
        m_recorder.read(reinterpret_cast<char *>(block.data()), sizeof block);
        const double peak = *std::max_element(block.begin(), block.end()) / 32'767.0;
        m_peak = std::max(m_peak, peak);
        m_loudBlocks += peak > LOUD ? 1 : 0;
        ++m_blocks;
        addTone(peak > LOUD ? (pitch(block) - PITCH_AT_START) / PITCH_PER_SECOND : SILENCE);
    }
}

void SoundServer::addTone(double position)
{
    constexpr double MAX_ERROR = 0.1; // seconds, of a measured position
    constexpr double MIN_JUMP = 0.3;  // seconds
    constexpr int MIN_TONE_BLOCKS = 5;

    const bool continues =
        std::abs(position - std::exchange(m_position, position) - BLOCK_SECONDS) < MAX_ERROR;
    m_toneBlocks = continues ? m_toneBlocks + 1 : 1;
    if (m_toneBlocks < MIN_TONE_BLOCKS)
        return;
    const double start = position - (MIN_TONE_BLOCKS - 1) * BLOCK_SECONDS;
    if (m_toneBlocks == MIN_TONE_BLOCKS && (!m_lastHeard || std::abs(start - *m_lastHeard) > MIN_JUMP))
        m_starts.push_back(start);
    m_lastHeard = position;
}

bool SoundServer::becomesSilent() const
{
    return QTest::qWaitFor([this] { return staysSilent(); }, TIMEOUT_MS);
}

bool SoundServer::staysSilent() const
{
    const int loudBefore = m_loudBlocks;
    const auto isDone = [&, end = m_blocks + HALF_A_SECOND] {
        return m_loudBlocks > loudBefore || m_blocks >= end;
    };
    return QTest::qWaitFor(isDone, TIMEOUT_MS) && m_loudBlocks == loudBefore;
}

} // namespace sonavo
