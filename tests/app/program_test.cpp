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

#include <cstdlib>
#include <vector>

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

    /// A folder with more small songs than can be read in an instant.
    void fillWithSongs(const QTemporaryDir &folder, int count) const
    {
        const QByteArray source =
            QFile::encodeName(QStringLiteral(SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3"));
        const QByteArray first = QFile::encodeName(folder.filePath(QStringLiteral("0.mp3")));
        ASSERT_TRUE(QFile::copy(QFile::decodeName(source), QFile::decodeName(first)));
        for (int i = 1; i < count; ++i) {
            const QByteArray next = QFile::encodeName(folder.filePath(QStringLiteral("%1.mp3").arg(i)));
            ASSERT_EQ(::link(first.constData(), next.constData()), 0);
        }
    }

    QTemporaryDir m_home;
    QProcess m_process;
};

const QString SAMPLES = QStringLiteral(SONAVO_SAMPLES);
const QString REPORT = QStringLiteral("--report");
const QString JSON = QStringLiteral("--json");

TEST_F(ProgramTest, FindsTheDuplicatesOfTheSampleLibraryInAllFourWays)
{
    ASSERT_EQ(run({REPORT, JSON, SAMPLES}), 0);
    EXPECT_EQ(complaints(), "");
    const QJsonObject report = QJsonDocument::fromJson(m_process.readAllStandardOutput()).object();
    const QJsonArray songs = report[QStringLiteral("songs")].toArray();
    EXPECT_EQ(songs.size(), 21);

    std::vector<std::vector<std::string>> groups;
    for (const QJsonValue &group : report[QStringLiteral("groups")].toArray()) {
        const auto pathOf = [&](const QJsonValue &position) {
            return songs[position.toInt()].toObject()[QStringLiteral("path")].toString().mid(SAMPLES.size() +
                                                                                             1);
        };
        groups.push_back({pathOf(group[QStringLiteral("original")]).toStdString()});
        for (const QJsonValue &duplicate : group[QStringLiteral("duplicates")].toArray())
            groups.back().push_back(pathOf(duplicate).toStdString());
    }
    const std::vector<std::vector<std::string>> expected{
        // The same title.
        {"Albums/The Silver Larks - Don't Look Down!.wav", "Phone/Silver Larks - Don't Look Down.aac"},
        {"Albums/Vela Torres - Harbour Lights.flac", "Laptop/Vela Torres - HARBOUR LIGHTS.mp3",
         "Phone/Vela Torres - Harbour Lights.m4a"},
        // The same file name.
        {"Laptop/Silverpine-Jo - River Song.mp3", "Phone/Silverpine Jo - River Song.mp3"},
        // The same artist and title.
        {"Desktop/Kestrel - Night Drive.flac", "Laptop/Kestrel - Night Drive.mp3"},
        // The same playing time.
        {"Phone/Ada Finch - Paper Boats (Live).m4a", "Albums/Ada Finch - Paper Boats.mp3"},
        {"Albums/Marlowe - Night Drive.mp3", "Laptop/Marlow - Night Drive.m4a"},
    };
    EXPECT_EQ(groups, expected);
}

TEST_F(ProgramTest, PrintsTheSameTextEveryTime)
{
    ASSERT_EQ(run({REPORT, SAMPLES}), 0);
    const std::string first = output();
    EXPECT_THAT(first,
                HasSubstr("Group of 3 songs\n  ORIGINAL   Vela Torres - Harbour Lights.flac  FLAC  0:01"));
    EXPECT_THAT(first, testing::EndsWith(" to free \u2022 21 songs scanned\n"));
    ASSERT_EQ(run({REPORT, SAMPLES}), 0);
    EXPECT_EQ(output(), first);
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
    fillWithSongs(folder, 20'000);
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
    fillWithSongs(folder, 60);
    m_process.setStandardErrorFile(QFile::decodeName(::ptsname(terminal)));
    ASSERT_EQ(run({REPORT, folder.path()}), 0);

    std::string shown(16'384, '\0');
    const ssize_t size = ::read(terminal, shown.data(), shown.size());
    ASSERT_GT(size, 0);
    shown.resize(static_cast<std::size_t>(size));
    ::close(terminal);
    EXPECT_THAT(shown, HasSubstr("  0% Step 1/4: Discovering audio files..."));
    EXPECT_THAT(shown, HasSubstr(" 83% Step 1/4: Processing audio files (50 of 60)"));
    EXPECT_THAT(shown, HasSubstr(" 75% Step 4/4: Deep comparison of remaining songs..."));
    EXPECT_THAT(shown, testing::EndsWith("\r\033[K"));
}

} // namespace
