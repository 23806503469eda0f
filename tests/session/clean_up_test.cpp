#include "session/duplicate_view_model.h"
#include "testing/music_folder.h"
#include "testing/persons_desktop.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using ToastType = DuplicateViewModel::ToastType;

const std::string CHOOSER = "Select a folder to move duplicate files to / Select Folder";

/// A session over real files, with a Trash of its own.
class CleanUpSession : public testing::Test
{
protected:
    CleanUpSession() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome.path())); }

    /// Toasts that wait to be hidden come to their end.
    void TearDown() override { settle(); }

    void scanSongs(const QStringList &songs)
    {
        for (const QString &song : songs)
            music.addSong(song);
        scan(music.urls());
    }
    void scan(const QList<QUrl> &urls)
    {
        session.startScan(urls);
        finishScan(session);
    }
    [[nodiscard]] QString trashedFiles() const { return m_dataHome.filePath(u"Trash/files"_s); }
    [[nodiscard]] std::string toast() const { return session.toastMessage().toStdString(); }
    void play(const Song &song)
    {
        session.togglePlayback(song);
        settle();
    }
    [[nodiscard]] DuplicateGroup group() const { return session.duplicateGroups().value(0); }

    const MusicFolder music;
    const MusicFolder target;
    PersonsDesktop desktop;
    std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
    DuplicateViewModel session{desktop, pauses, QList<Color>(6)};

private:
    QTemporaryDir m_dataHome;
};

TEST_F(CleanUpSession, MovesNothingWithoutDuplicatesOrAFolder)
{
    session.moveDuplicatesToFolder();
    EXPECT_EQ(toast(), "No duplicates to move");
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());

    scanSongs({u"1/Ada - One.flac"_s, u"2/Ada - One.flac"_s});
    play(group().original);
    session.moveDuplicatesToFolder();
    EXPECT_EQ(session.currentlyPlayingSong(), group().original);
    play(group().duplicates[0]);
    session.moveDuplicatesToFolder();
    EXPECT_FALSE(session.currentlyPlayingSong());

    music.addText(u"file"_s);
    desktop.onChooseFolder = [this] { return music.pathOf(u"file"_s); };
    session.moveDuplicatesToFolder();
    EXPECT_EQ(toast(), "Failed to create folder: Not a directory");
    EXPECT_EQ(session.toastType(), ToastType::Error);
    EXPECT_EQ(std::ranges::count(desktop.calls, CHOOSER), 3);
    EXPECT_EQ(session.duplicateGroups().size(), 1);
    EXPECT_EQ(session.songs().size(), 2);
    EXPECT_EQ(filesIn(music.path()).size(), 3);
    EXPECT_EQ(desktop.clipboard, QString());
}

TEST_F(CleanUpSession, MovesNothingWhenTheResultChangesUnderTheChooser)
{
    scanSongs({u"1/Ada - One.flac"_s, u"2/Ada - One.flac"_s});
    const std::function<void()> changes[] = {
        [this] { session.clearAll(); },
        [this] {
            session.startScan({music.urlOf(u"1"_s)});
            finishScan(session);
        },
        [this] { session.deleteSong(group().duplicates[0]); },
    };
    for (const auto &change : changes) {
        if (session.duplicateGroups().isEmpty())
            scan(music.urls());
        ASSERT_EQ(session.duplicateGroups().size(), 1);
        desktop.onChooseFolder = [this, &change] {
            change();
            return target.path();
        };
        session.moveDuplicatesToFolder();
        EXPECT_THAT(QDir(target.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), IsEmpty());
    }
}

TEST_F(CleanUpSession, ForgetsAFolderChosenWhenTheSessionIsGone)
{
    scanSongs({u"1/Ada - One.flac"_s, u"2/Ada - One.flac"_s});
    auto shortLived = std::make_unique<DuplicateViewModel>(desktop, pauses, QList<Color>(6));
    shortLived->startScan(music.urls());
    finishScan(*shortLived);
    desktop.onChooseFolder = [this, &shortLived] {
        shortLived.reset();
        return target.path();
    };
    shortLived->moveDuplicatesToFolder();
    EXPECT_THAT(filesIn(target.path()), IsEmpty());
    EXPECT_EQ(filesIn(music.path()).size(), 2);
}

TEST_F(CleanUpSession, DoesNotDeleteTheOnlyFileOfASongThatIsListedTwice)
{
    music.addSong(u"1/Ada - One.flac"_s);
    scan({music.urlOf(u"1"_s), music.urlOf(u"1/Ada - One.flac"_s)});
    ASSERT_EQ(session.duplicateGroups().size(), 1);
    play(group().original);
    session.deleteSong(group().original);
    EXPECT_THAT(toast(), testing::MatchesRegex("Could not delete file: .+"));
    EXPECT_FALSE(session.currentlyPlayingSong());
    EXPECT_EQ(session.songs().size(), 2);
    EXPECT_EQ(group().duplicates.size(), 1);

    session.cleanupAll();
    EXPECT_EQ(toast(), "Moved 0 files to Trash \u2022 Saved Zero KB");
    EXPECT_EQ(filesIn(music.path()).size(), 1);
}

/// A thousand duplicates of two hundred songs; some files vanish before the clean-up, and some originals.
class LargeCleanUp : public CleanUpSession
{
protected:
    static constexpr int GROUPS = 200;
    static constexpr int COPIES = 6;
    static constexpr int LOST_ORIGINALS = 20;
    static constexpr int LOST_DUPLICATES = 40;

    void SetUp() override
    {
        music.addGroups(QList<int>(GROUPS, COPIES));
        scan(music.urls());
        const QList<DuplicateGroup> groups = session.duplicateGroups();
        ASSERT_EQ(groups.size(), GROUPS);
        for (qsizetype i = 0; i < groups.size(); ++i) {
            ASSERT_EQ(groups[i].duplicates.size(), COPIES - 1);
            if (i % 10 == 3)
                m_lost.insert(groups[i].original.path);
            else if (i % 5 == 1)
                m_lost.insert(groups[i].duplicates[2].path);
        }
        for (const QString &path : m_lost)
            ASSERT_TRUE(QFile::remove(path));
        ASSERT_EQ(m_lost.size(), LOST_ORIGINALS + LOST_DUPLICATES);
    }

    /// Every file is in exactly one place, and what left is what was counted.
    void expectNothingLost(const QString &newPlace)
    {
        constexpr qsizetype MOVED = (GROUPS - LOST_ORIGINALS) * (COPIES - 1) - LOST_DUPLICATES;
        EXPECT_EQ(filesIn(newPlace).size(), MOVED);
        EXPECT_EQ(filesIn(music.path()).size(), GROUPS * COPIES - m_lost.size() - MOVED);
        EXPECT_THAT(session.duplicateGroups(), IsEmpty());
        EXPECT_EQ(session.songs().size(), GROUPS);
        for (const Song &original : session.songs())
            EXPECT_EQ(QFileInfo::exists(original.path), !m_lost.contains(original.path));
        for (const QString &file : filesIn(newPlace))
            EXPECT_EQ(QFileInfo(file).size(), session.songs().last().size);
    }

private:
    QSet<QString> m_lost;
};

TEST_F(LargeCleanUp, MovesEveryFileToOnePlace)
{
    desktop.onChooseFolder = [this] { return target.path(); };
    session.moveDuplicatesToFolder();
    EXPECT_EQ(toast(), "Moved 860 files \u2022 140 failed");
    EXPECT_EQ(session.toastType(), ToastType::Error);
    expectNothingLost(target.path());
}

TEST_F(LargeCleanUp, TrashesEveryFileOnce)
{
    play(session.duplicateGroups()[7].duplicates[1]);
    session.cleanupAll();
    EXPECT_FALSE(session.currentlyPlayingSong());
    EXPECT_EQ(toast(), "Moved 860 files to Trash \u2022 100 failed");
    EXPECT_EQ(session.toastType(), ToastType::Error);
    expectNothingLost(trashedFiles());
}

} // namespace
} // namespace sonavo
