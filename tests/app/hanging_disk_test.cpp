#include "testing/audio_fixtures.h"
#include "testing/hanging_disk.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int PATIENCE_MS = 60'000;

/// The real program with a song on a disk that hangs.
class ProgramWithHangingDisk : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_disk.start())
            GTEST_SKIP() << "no right to hold system calls";
        const QByteArray song = audioContent(u"mp3"_s, 0.2);
        for (const QString &name : {u"A - B.mp3"_s, u"A - hangs.mp3"_s, u"C - D.mp3"_s})
            writeFile(m_folder.filePath(name), song);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, m_home.path());
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        m_program.setProcessEnvironment(environment);
        m_program.setProgram(QStringLiteral(SONAVO_PROGRAM));
    }

    void start(const QStringList &arguments)
    {
        m_program.setArguments(arguments);
        m_program.start();
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_disk.hangingReads() > 0; }, PATIENCE_MS));
    }

    void expectSuccess()
    {
        ASSERT_TRUE(m_program.waitForFinished(PATIENCE_MS));
        EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_program.exitCode(), 0) << m_program.readAllStandardError().toStdString();
        EXPECT_GE(m_disk.hangingReads(), 1); // what interrupts a read makes it a second one
    }

    const QTemporaryDir m_folder;
    const QTemporaryDir m_home;
    HangingDisk m_disk{"hangs.mp3"};
    QProcess m_program;
};

TEST_F(ProgramWithHangingDisk, ReportsTheOtherSongs)
{
    ASSERT_NO_FATAL_FAILURE(start({u"--report"_s, m_folder.path()}));
    expectSuccess();
    EXPECT_THAT(m_program.readAllStandardOutput().toStdString(), testing::HasSubstr("2 songs"));
}

TEST_F(ProgramWithHangingDisk, QuitsDuringTheScan)
{
    ASSERT_NO_FATAL_FAILURE(start({m_folder.path()}));
    m_program.terminate();
    expectSuccess();
}

} // namespace
} // namespace sonavo
