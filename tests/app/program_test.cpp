#include "testing/audio_fixtures.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace sonavo {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Whether a process has said what is to happen on SIGINT.
bool catchesInterrupts(qint64 process)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = status.readAll();
    const QByteArray mark = "SigCgt:\t";
    const qsizetype start = text.indexOf(mark) + mark.size();
    return (text.sliced(start, 16).toULongLong(nullptr, 16) & (1ULL << (SIGINT - 1))) != 0;
}

/// The real program in a process of its own, with settings of its own and a locale that Qt would complain
/// about.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.path());
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
        for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(display));
        m_process.setProcessEnvironment(environment);
        m_process.setProgram(QStringLiteral(SONAVO_PROGRAM));
    }

    void start(const QStringList &arguments)
    {
        m_process.setArguments(arguments);
        m_process.start();
        ASSERT_TRUE(m_process.waitForStarted());
    }
    int finish()
    {
        EXPECT_TRUE(m_process.waitForFinished(60'000));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        return m_process.exitCode();
    }
    int run(const QStringList &arguments)
    {
        start(arguments);
        return finish();
    }

    std::string output() { return m_process.readAllStandardOutput().toStdString(); }
    std::string complaints() { return m_process.readAllStandardError().toStdString(); }

    QTemporaryDir m_home;
    QProcess m_process;
};

const QString SAMPLES = QStringLiteral(SONAVO_SAMPLES);
const QString REPORT = QStringLiteral("--report");
const QString JSON = QStringLiteral("--json");

TEST_F(ProgramTest, FindsTheDuplicatesOfTheSampleLibraryInAllFourWays)
{
    // By title twice, then by file name, by artist and title, and twice by playing time.
    QFile expected(QStringLiteral(SONAVO_SAMPLES_REPORT));
    ASSERT_TRUE(expected.open(QIODevice::ReadOnly));
    ASSERT_EQ(run({REPORT, SAMPLES}), 0);
    EXPECT_EQ(output(), expected.readAll().toStdString());
    ASSERT_EQ(run({REPORT, JSON, SAMPLES}), 0);
    const QJsonObject report = QJsonDocument::fromJson(m_process.readAllStandardOutput()).object();
    EXPECT_EQ(report[QStringLiteral("songs")].toArray().size(), 21);
    EXPECT_EQ(report[QStringLiteral("groups")].toArray().size(), 6);
    EXPECT_EQ(complaints(), "");
}

TEST_F(ProgramTest, TellsApartSuccessNothingFoundAndUnusableArguments)
{
    const QTemporaryDir folder;
    ASSERT_EQ(run({REPORT, SAMPLES + QStringLiteral("/Albums/Cora Lind - Go.mp3")}), 0);
    EXPECT_EQ(output(), "0 groups \u2022 0 duplicate files \u2022 Zero KB to free \u2022 1 song scanned\n");
    EXPECT_EQ(run({REPORT, folder.path()}), 1);
    EXPECT_EQ(complaints(), "sonavo: No audio files found in the selected folder.\n");
    QFile noMusic(folder.filePath(QStringLiteral("a.mp3")));
    ASSERT_TRUE(noMusic.open(QIODevice::WriteOnly));
    EXPECT_EQ(run({REPORT, folder.path()}), 1);
    EXPECT_EQ(complaints(), "sonavo: No supported audio files found.\n");
    EXPECT_EQ(output(), "");

    EXPECT_EQ(run({REPORT, folder.filePath(QStringLiteral("missing"))}), 2);
    EXPECT_THAT(complaints(), HasSubstr("no such file or folder"));
    EXPECT_EQ(run({}), 1);
    EXPECT_THAT(complaints(), HasSubstr("no display"));
    EXPECT_EQ(output(), "");

    EXPECT_EQ(run({QStringLiteral("--help")}), 0);
    EXPECT_THAT(output(), HasSubstr("--report"));
    EXPECT_EQ(run({QStringLiteral("--version")}), 0);
    EXPECT_THAT(output(), StartsWith("sonavo "));
}

TEST_F(ProgramTest, SaysWhenTheReportCannotBeWritten)
{
    m_process.setStandardOutputFile(QStringLiteral("/dev/full"));
    EXPECT_EQ(run({REPORT, SAMPLES}), 1);
    EXPECT_EQ(complaints(), "sonavo: the report could not be written\n");
}

TEST_F(ProgramTest, StopsCleanlyOnCtrlC)
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 20'000);
    start({REPORT, folder.path()});
    // A scan of this size pauses for more than a second.
    ASSERT_TRUE(QTest::qWaitFor([this] { return catchesInterrupts(m_process.processId()); }, 20'000));
    ASSERT_EQ(::kill(static_cast<pid_t>(m_process.processId()), SIGINT), 0);
    EXPECT_EQ(finish(), 130);
    EXPECT_EQ(output(), "");
    EXPECT_EQ(complaints(), "");
}

TEST_F(ProgramTest, ShowsProgressOnATerminalAndTakesItAway)
{
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(terminal, 0);
    ASSERT_EQ(::grantpt(terminal), 0);
    ASSERT_EQ(::unlockpt(terminal), 0);
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 60);
    m_process.setStandardErrorFile(QFile::decodeName(::ptsname(terminal)));
    ASSERT_EQ(run({REPORT, folder.path()}), 0);

    std::string shown;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        std::array<char, 4096> piece{};
        const ssize_t size = ::read(terminal, piece.data(), piece.size());
        shown.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        return shown.ends_with("100% \r\033[K");
    })) << shown;
    ::close(terminal);
    EXPECT_THAT(shown, HasSubstr("  0% Step 1/4: Discovering audio files..."));
    EXPECT_THAT(shown, HasSubstr(" 83% Step 1/4: Processing audio files (50 of 60)"));
    EXPECT_THAT(shown, HasSubstr(" 75% Step 4/4: Deep comparison of remaining songs..."));
}

} // namespace
} // namespace sonavo
