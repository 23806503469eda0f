#include "testing/audio_fixtures.h"
#include "testing/hanging_disk.h"

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
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace sonavo {
namespace {

using testing::HasSubstr;

/// The real program in a process of its own, with its own settings, without a display, and in a locale that
/// Qt would warn about.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
    {
        m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.path());
        m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
        for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            m_environment.remove(QString::fromLatin1(display));
    }

    void start(const QStringList &arguments)
    {
        m_process.setProcessEnvironment(m_environment);
        m_process.start(QStringLiteral(SONAVO_PROGRAM), arguments);
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
    std::string errors() { return m_process.readAllStandardError().toStdString(); }

    QTemporaryDir m_folder;
    QTemporaryDir m_home;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QProcess m_process;
};

const QString SAMPLES = QStringLiteral(SONAVO_SAMPLES);
const QString REPORT = QStringLiteral("--report");
const QString JSON = QStringLiteral("--json");
const QString CSV = QStringLiteral("--csv");
const QString FURTHER = QStringLiteral("--further");

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
    ASSERT_EQ(run({REPORT, CSV, SAMPLES}), 0);
    EXPECT_EQ(QString::fromStdString(output()).count(u"\r\n"), 1 + 6 + 7);
    EXPECT_EQ(errors(), "");
}

TEST_F(ProgramTest, FindsWhatOnlyLookingFurtherCanSee)
{
    const QByteArray song = audioContent(QStringLiteral("mp3"), 0.2);
    for (const char *name : {"Кино - Группа крови.mp3", "Кино - Группа крови (Live).mp3"})
        writeFile(m_folder.filePath(QString::fromUtf8(name)), song);
    ASSERT_EQ(run({REPORT, m_folder.path()}), 0);
    EXPECT_THAT(output(), testing::StartsWith("0 groups"));
    ASSERT_EQ(run({REPORT, FURTHER, m_folder.path()}), 0);
    EXPECT_THAT(output(), testing::StartsWith("Group of 2 songs"));
}

TEST_F(ProgramTest, TellsApartSuccessNothingFoundAndUnusableArguments)
{
    const QString noMusic = m_folder.filePath(QStringLiteral("a.mp3"));
    writeFile(noMusic, {});
    const struct
    {
        QStringList arguments;
        int status;
        std::string output;
        std::string errors;
    } cases[] = {
        {{REPORT, SAMPLES + QStringLiteral("/Albums/Cora Lind - Go.mp3")}, 0, "0 groups \u2022", ""},
        {{REPORT, m_home.path()}, 1, "", "sonavo: No audio files found in the selected folder.\n"},
        {{REPORT, m_folder.path()}, 1, "", "sonavo: No supported audio files found.\n"},
        {{REPORT, SAMPLES, noMusic + u'x'}, 2, "", "sonavo: no such file or folder"},
        {{noMusic + u'x'}, 2, "", "sonavo: no such file or folder"},
        {{REPORT, QString()}, 2, "", "sonavo: no such file or folder"},
        {{REPORT}, 2, "", "sonavo: --report needs"},
        {{JSON, SAMPLES}, 2, "", "sonavo: --json needs"},
        {{CSV, SAMPLES}, 2, "", "sonavo: --csv needs"},
        {{REPORT, CSV, JSON, SAMPLES}, 2, "", "sonavo: --json and --csv"},
        {{FURTHER, SAMPLES}, 2, "", "sonavo: --further needs"},
        {{REPORT, QStringLiteral("--loud"), SAMPLES}, 2, "", "sonavo: Unknown option 'loud'.\nTry"},
        {{}, 1, "", "sonavo: there is no display"},
        {{QStringLiteral("--help")}, 0, "Usage: sonavo", ""},
        {{QStringLiteral("--version")}, 0, "sonavo ", ""},
    };
    for (const auto &expected : cases) {
        SCOPED_TRACE(expected.arguments.join(u' ').toStdString());
        EXPECT_EQ(run(expected.arguments), expected.status);
        const std::string printed = output();
        const std::string warned = errors();
        EXPECT_TRUE(expected.output.empty() ? printed.empty() : printed.starts_with(expected.output));
        EXPECT_TRUE(expected.errors.empty() ? warned.empty() : warned.starts_with(expected.errors)) << warned;
    }
}

TEST_F(ProgramTest, StartsWithoutSettingsThatWouldBeReadForever)
{
    const QByteArray file = QFile::encodeName(m_home.filePath(QStringLiteral("sonavo.conf")));
    ASSERT_EQ(::mkfifo(file.constData(), 0600), 0);
    EXPECT_EQ(run({REPORT, SAMPLES}), 0);
    EXPECT_EQ(errors(), "");
}

TEST_F(ProgramTest, SaysInOneLineThatNoWindowCanBeOpened)
{
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_home.path());
    for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        m_environment.insert(QString::fromLatin1(display), QStringLiteral(":9999"));
        EXPECT_EQ(run({}), 1) << display;
        EXPECT_EQ(errors(), "sonavo: no window can be opened on this display; --report needs none\n");
    }
}

TEST_F(ProgramTest, SpeaksTheLanguageOfTheUserExceptInReports)
{
    // Installed or not.
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    m_environment.remove(QStringLiteral("LANGUAGE"));
    EXPECT_EQ(run({}), 1);
    EXPECT_EQ(errors(), "sonavo: keine Anzeige für ein Fenster vorhanden; --report braucht keine\n");
    EXPECT_EQ(run({QStringLiteral("--loud")}), 2);
    EXPECT_EQ(errors(), "sonavo: Unbekannte Option „loud“.\n„sonavo --help“ zeigt Hilfe.\n");
    EXPECT_EQ(run({QStringLiteral("--help")}), 0);
    EXPECT_THAT(output(), testing::StartsWith("Aufruf: sonavo"));
    EXPECT_EQ(run({REPORT, SAMPLES}), 0);
    EXPECT_THAT(output(), HasSubstr("6 groups \u2022 7 duplicate files \u2022 43 KB to free"));
}

TEST_F(ProgramTest, SaysWhenTheReportCannotBeWritten)
{
    m_process.setStandardOutputFile(QStringLiteral("/dev/full"));
    EXPECT_EQ(run({REPORT, SAMPLES}), 1);
    EXPECT_EQ(errors(), "sonavo: the report could not be written\n");
}

TEST_F(ProgramTest, ShowsProgressOnATerminalAndErasesItEvenOnCtrlC)
{
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_EQ(::grantpt(terminal), 0);
    ASSERT_EQ(::unlockpt(terminal), 0);
    m_process.setStandardErrorFile(QFile::decodeName(::ptsname(terminal)));
    std::string shown;
    const auto showsAtTheEnd = [&](const char *text) {
        std::array<char, 4096> piece{};
        const ssize_t size = ::read(terminal, piece.data(), piece.size());
        shown.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        return shown.ends_with(text);
    };
    fillWithSongs(m_folder.path(), 60);
    ASSERT_EQ(run({REPORT, m_folder.path()}), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return showsAtTheEnd("100% \r\033[K"); })) << shown;
    EXPECT_THAT(shown, HasSubstr("  0% Step 1/4: Discovering audio files..."));
    EXPECT_THAT(shown, HasSubstr(" 83% Step 1/4: Processing audio files (50 of 60)"));
    EXPECT_THAT(shown, HasSubstr(" 75% Step 4/4: Deep comparison of remaining songs..."));

    // A scan of this size pauses for more than a second.
    QTemporaryDir many;
    fillWithSongs(many.path(), 20'000);
    EXPECT_NE(output(), "");
    start({REPORT, many.path()});
    EXPECT_TRUE(QTest::qWaitFor([&] { return showsAtTheEnd("..."); }, 20'000)) << shown;
    ASSERT_EQ(::kill(static_cast<pid_t>(m_process.processId()), SIGINT), 0);
    EXPECT_EQ(finish(), 130);
    EXPECT_TRUE(QTest::qWaitFor([&] { return showsAtTheEnd("\r\033[K"); })) << shown;
    EXPECT_EQ(output(), "");
    ::close(terminal);
}

TEST_F(ProgramTest, ReportsAndQuitsEvenIfADiskHangs)
{
    HangingDisk disk("hangs.mp3");
    if (!disk.start())
        GTEST_SKIP() << "no right to hold system calls, or not the only test";
    const QByteArray song = audioContent(QStringLiteral("mp3"), 0.2);
    for (const char *name : {"A - B.mp3", "A - hangs.mp3", "C - D.mp3"})
        writeFile(m_folder.filePath(QString::fromLatin1(name)), song);
    EXPECT_EQ(run({REPORT, m_folder.path()}), 0);
    EXPECT_THAT(output(), HasSubstr("2 songs"));

    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const std::size_t before = disk.hangingReads();
    EXPECT_GT(before, 0U);
    start({m_folder.path()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return disk.hangingReads() > before; }, 60'000));
    m_process.terminate();
    EXPECT_EQ(finish(), 0) << errors();
}

} // namespace
} // namespace sonavo
