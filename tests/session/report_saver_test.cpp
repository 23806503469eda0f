#include "session/duplicate_view_model.h"
#include "testing/fake_desktop.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ReportSaverTest : public testing::Test
{
protected:
    ReportSaverTest()
    {
        music.addGroups({3, 2});
        session.startScan(music.urls());
        finishScan(session);
    }
    void finish() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !session.isCleaningUp(); }, 20'000));
    }
    /// @return the file's content afterwards
    QByteArray save(const QString &name)
    {
        desktop.onChooseReportFile = [path = folder.filePath(name)] { return path; };
        session.saveReport();
        finish();
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] Song duplicate(qsizetype group, qsizetype i) const
    {
        return session.duplicateGroups().at(group).duplicates.at(i);
    }

    const PrivateHome home;
    const MusicFolder music;
    const QTemporaryDir folder;
    FakeDesktop desktop;
    DuplicateViewModel session{desktop, std::make_shared<InstantPauses>(), QList<Color>(6)};
};

TEST_F(ReportSaverTest, SavesTheGroupsAsTheyAreShownAndSaysWhere)
{
    const Song kept = duplicate(0, 1);
    session.keepSong(kept);
    finish();
    session.deleteSong(duplicate(1, 0));
    finish();
    const QList<QByteArray> lines = save(u"R.csv"_s).split('\n');
    EXPECT_EQ(lines.size(), 5) << "titles, the group of three, and the end; a song alone is no group";
    EXPECT_THAT(lines[1].toStdString(), StartsWith("1,original,\"" + kept.path.toStdString()));
    EXPECT_EQ(session.toastMessage(), u"Report saved: R.csv"_s);
    EXPECT_EQ(session.toastAction(), u"Show in Folder"_s);
    desktop.calls.clear();
    session.performToastAction();
    EXPECT_THAT(desktop.calls, ElementsAre("show " + folder.filePath(u"R.csv"_s).toStdString()));
    EXPECT_FALSE(session.isCleaningUp()) << "nothing is undone";
    session.undo();
    finish();

    // A song whose file is gone leaves the songs, and stays in its group.
    const Song gone = duplicate(1, 0);
    ASSERT_TRUE(QFile::remove(gone.path));
    session.deleteSong(gone);
    finish();
    const QJsonObject report = QJsonDocument::fromJson(save(u"r.JSON"_s)).object();
    const int index = report[u"groups"_s][1][u"duplicates"_s][0].toInt();
    EXPECT_EQ(report[u"songs"_s][index][u"path"_s].toString(), gone.path);
    settle();
}

TEST_F(ReportSaverTest, KeepsTheEarlierReportWhereTheNewOneCannotBeWritten)
{
    const QByteArray before = save(u"r.csv"_s);
    EXPECT_THAT(before.toStdString(), HasSubstr("2,duplicate,"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    rlimit small = limit;
    small.rlim_cur = 100;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_EQ(save(u"r.csv"_s), before);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    EXPECT_EQ(session.toastMessage(), u"The report could not be saved: File too large"_s);
    EXPECT_EQ(session.toastAction(), QString());

    save(u"none/r.csv"_s);
    EXPECT_EQ(session.toastMessage(), u"The report could not be saved: No such file or directory"_s);
    EXPECT_EQ(filesIn(folder.path()), QStringList{folder.filePath(u"r.csv"_s)})
        << "nothing else is left over";
    settle();
}

} // namespace
} // namespace sonavo
