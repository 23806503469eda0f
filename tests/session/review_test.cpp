#include "generators/small_audio.h"
#include "session/duplicate_view_model.h"
#include "testing/audio_fixtures.h"
#include "testing/fake_desktop.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"

#include <QSemaphore>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// A session with real files, of which the scan finds some duplicates and looking further two more.
class ReviewTest : public testing::Test
{
protected:
    ReviewTest()
    {
        add("a/Band One - Song of One", 100.2, 0);
        add("b/Band One - Song of One", 100.2, 10);
        add("c/Band One - Song of One (Live)", 101.5, 20);
        for (const char *folder : {"a", "ab", "b/below"})
            add(folder + std::string("/Band Two - Other Thing"), 150, folder[0] == 'b' ? 0 : 10);
        for (const char *folder : {"a", "b"})
            add(folder + std::string("/Кино - Группа крови"), 200, 0);
        scan();
    }
    /// Timers of toasts run out.
    ~ReviewTest() override { settle(); }
    Q_DISABLE_COPY_MOVE(ReviewTest)

    void add(const std::string &name, double seconds, std::size_t padding,
             const std::string &type = "mp3") const
    {
        const QString format = QString::fromStdString(type).toUpper();
        home.add("music/" + name + '.' + type,
                 smallAudio(format, seconds).content.toStdString() + std::string(padding, '.'));
    }
    void scan()
    {
        session.startScan({QUrl::fromLocalFile(QString::fromStdString(home.path("music").string()))});
        finishScan(session);
    }
    void finish() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !session.isCleaningUp(); }, 20'000));
    }
    void findMore()
    {
        session.findMore();
        finish();
    }
    void returnToFirstResult()
    {
        session.returnToFirstResult();
        finish();
    }
    void undo()
    {
        session.undo();
        finish();
    }

    [[nodiscard]] Song song(const std::string &name) const
    {
        for (const Song &song : session.songs()) {
            if (song.path.toStdString().ends_with(name + ".mp3"))
                return song;
        }
        ADD_FAILURE() << name;
        return {};
    }
    [[nodiscard]] std::string nameOf(const Song &song) const
    {
        const std::string folder = home.path("music").string() + '/';
        const std::string name = song.path.toStdString().substr(folder.size());
        return name.substr(0, name.rfind(".mp3")) + (session.onlyFurther().contains(song.id) ? "*" : "");
    }
    /// The groups with duplicates, then the number of songs.
    [[nodiscard]] std::vector<std::string> shown() const
    {
        std::vector<std::string> lines;
        for (const DuplicateGroup &group : session.duplicateGroups()) {
            std::string line;
            for (const Song &song : membersOf(group))
                line += nameOf(song) + "; ";
            if (!group.duplicates.isEmpty())
                lines.push_back(line);
        }
        lines.push_back(std::to_string(session.songCount()));
        return lines;
    }
    [[nodiscard]] std::string toast() const { return session.toastMessage().toStdString(); }

    const PrivateHome home;
    FakeDesktop desktop;
    DuplicateViewModel session{
        desktop, std::make_shared<InstantPauses>(), {Color()}, std::make_shared<KnownDurations>()};
};

constexpr const char *THREE =
    "a/Band Two - Other Thing; ab/Band Two - Other Thing; b/below/Band Two - Other Thing; ";

TEST_F(ReviewTest, ShowsWhatLookingFurtherFindsAndTheFirstResultAgain)
{
    const std::vector<std::string> first = shown();
    EXPECT_THAT(first, ElementsAre("b/Band One - Song of One; a/Band One - Song of One; ", THREE, "8"));
    findMore();
    const std::vector<std::string> further = shown();
    EXPECT_THAT(further, ElementsAre("c/Band One - Song of One (Live); a/Band One - Song of One; "
                                     "b/Band One - Song of One*; ",
                                     THREE, "a/Кино - Группа крови; b/Кино - Группа крови*; ", "8"));
    EXPECT_EQ(toast(), "2 more duplicates found");
    EXPECT_EQ(session.moreFoundDescription(), u"2 more duplicates found"_s);
    EXPECT_EQ(session.undoText(), u"Undo Find More Duplicates"_s);

    session.togglePlayback(song("b/Кино - Группа крови"));
    returnToFirstResult();
    EXPECT_EQ(shown(), first);
    EXPECT_EQ(toast(), "Returned to the first result");
    EXPECT_EQ(session.moreFoundDescription(), QString());
    EXPECT_FALSE(session.currentlyPlayingSong()) << "it has no row any more";
    undo();
    EXPECT_EQ(toast(), "Undone: Return to First Result");
    EXPECT_EQ(shown(), further);
    session.togglePlayback(song("b/Кино - Группа крови"));
    undo();
    EXPECT_EQ(shown(), first);
    EXPECT_FALSE(session.currentlyPlayingSong());
    EXPECT_EQ(session.undoText(), QString());

    // Other songs know nothing of it.
    findMore();
    scan();
    EXPECT_EQ(session.undoText(), QString());
    EXPECT_EQ(shown(), first);
}

TEST_F(ReviewTest, LeavesTheResultWhenNothingIsFoundOrTheUserStopsIt)
{
    const std::vector<std::string> first = shown();
    QSemaphore canBegin;
    fileJobThread().start([&canBegin] { canBegin.acquire(); });
    session.findMore();
    session.stopCleanUp();
    canBegin.release();
    finish();
    EXPECT_EQ(shown(), first);
    EXPECT_EQ(session.undoText(), QString());
    EXPECT_EQ(toast(), "");

    for (const char *name : {"c/Band One - Song of One (Live)", "b/Кино - Группа крови"}) {
        session.deleteSong(song(name));
        finish();
    }
    findMore();
    EXPECT_EQ(toast(), "No more duplicates found");
    EXPECT_EQ(session.toastAction(), QString());
    EXPECT_FALSE(session.isFurtherResult());
}

TEST_F(ReviewTest, LetsBothResultsFollowEveryStep)
{
    const std::vector<std::string> first = shown();
    const std::function<void()> steps[] = {
        [this] { session.deleteSong(song("b/Band One - Song of One")); },
        [this] { session.deleteSong(song("c/Band One - Song of One (Live)")); },
        [this] { session.keepSong(song("a/Band One - Song of One")); },
        [this] { session.keepCopiesInFolderOf(song("b/Band One - Song of One")); },
        [this] { session.excludeFromDuplicates(song("a/Band One - Song of One")); },
        [this] { session.excludeFromDuplicates(song("a/Band Two - Other Thing")); },
    };
    for (const auto &step : steps) {
        step();
        finish();
        const std::vector<std::string> firstAfterwards = shown();
        findMore();
        const std::vector<std::string> furtherAfterwards = shown();
        undo();
        undo();
        EXPECT_EQ(shown(), first);

        findMore();
        step();
        finish();
        EXPECT_EQ(shown(), furtherAfterwards);
        returnToFirstResult();
        EXPECT_EQ(shown(), firstAfterwards);
        undo();
        undo();
        undo();
        EXPECT_EQ(shown(), first);
        EXPECT_EQ(session.undoText(), QString());
    }

    findMore();
    session.deleteSong(song("b/Band One - Song of One"));
    finish();
    EXPECT_EQ(shown()[0], "c/Band One - Song of One (Live); a/Band One - Song of One*; ")
        << "without the deleted one, the four passes would not have found it";
}

TEST_F(ReviewTest, MakesOriginalsOfWhatTheUserKeeps)
{
    struct Case
    {
        std::function<void()> step;
        std::string toast;
        std::vector<std::string> shown;
    };
    const Case cases[] = {
        {[this] { session.keepSong(song("b/below/Band Two - Other Thing")); },
         "Changed the original in 1 group",
         {"b/Band One - Song of One; a/Band One - Song of One; ",
          "b/below/Band Two - Other Thing; a/Band Two - Other Thing; ab/Band Two - Other Thing; ", "8"}},
        {[this] { session.keepCopiesInFolderOf(song("a/Band One - Song of One")); },
         "Changed the original in 2 groups",
         {"a/Band One - Song of One; b/Band One - Song of One; ",
          "a/Band Two - Other Thing; b/below/Band Two - Other Thing; ab/Band Two - Other Thing; ", "8"}},
        {[this] { session.keepSong(song("a/Band Two - Other Thing")); },
         "No original has changed",
         {"a/Band One - Song of One; b/Band One - Song of One; ",
          "a/Band Two - Other Thing; b/below/Band Two - Other Thing; ab/Band Two - Other Thing; ", "8"}},
        {[this] { session.excludeFromDuplicates(song("b/Band One - Song of One")); },
         "Not a duplicate: Band One - Song of One.mp3",
         {"a/Band Two - Other Thing; b/below/Band Two - Other Thing; ab/Band Two - Other Thing; ", "8"}},
        {[this] { session.deleteSong(song("a/Band Two - Other Thing")); },
         "Moved to Trash: Band Two - Other Thing.mp3",
         {"b/below/Band Two - Other Thing; ab/Band Two - Other Thing; ", "7"}},
    };
    for (const Case &each : cases) {
        each.step();
        finish();
        EXPECT_EQ(toast(), each.toast);
        EXPECT_EQ(shown(), each.shown);
    }
}

TEST_F(ReviewTest, KeepsTheLargestLosslessCopyOfEveryGroup)
{
    for (const auto &[folder, padding] : {std::pair("a", 0), std::pair("b", 10)}) {
        const auto size = static_cast<std::size_t>(padding);
        add(folder + std::string("/Band Four - Last Waltz"), 170, 30'000 + size);
        add(folder + std::string("/Band Four - Last Waltz"), 170, size, "flac");
    }
    scan();
    session.keepLosslessCopies();
    finish();
    EXPECT_EQ(toast(), "Changed the original in 1 group");
    EXPECT_THAT(shown(), testing::Contains(testing::StartsWith("b/Band Four - Last Waltz.flac; "
                                                               "a/Band Four - Last Waltz.flac; ")));
    session.keepLosslessCopies();
    finish();
    EXPECT_EQ(toast(), "No original has changed");
}

TEST_F(ReviewTest, KnowsByTheContentWhichM4aIsLosslessAlsoAfterASecondScan)
{
    using namespace std::chrono_literals;
    const auto addM4a = [this](const char *folder, const QString &codec, std::uintmax_t size) {
        const auto path = home.path(std::string("music/") + folder + "/Band Four - Last Waltz.m4a");
        writeSound(QString::fromStdString(path.string()), u"0"_s, 50, u"-c:a "_s + codec);
        std::filesystem::resize_file(path, size);
        // Old enough to be remembered.
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - 1h);
    };
    addM4a("a", u"aac"_s, 3'000'010);
    addM4a("b", u"alac"_s, 3'000'000);
    for (int i = 0; i < 2; ++i) {
        scan();
        session.keepLosslessCopies();
        finish();
        EXPECT_THAT(shown(),
                    testing::Contains("b/Band Four - Last Waltz.m4a; a/Band Four - Last Waltz.m4a; "));
    }
}

TEST_F(ReviewTest, CleansUpWhatOnlyLookingFurtherFoundUnlessItHasChangedSinceTheScan)
{
    const std::string changed = "music/b/Кино - Группа крови.mp3";
    home.add(changed, "another song, which nobody has read");
    findMore();
    session.cleanupAll();
    finish();
    EXPECT_TRUE(std::filesystem::exists(home.path(changed)));
    EXPECT_EQ(session.cleanUpFailureCount(), 1);
    EXPECT_THAT(toast(), testing::StartsWith("Moved 4 files"));
    EXPECT_THAT(shown(), ElementsAre("3"));
    returnToFirstResult();
    EXPECT_THAT(shown(), ElementsAre("3")) << "of each group the copy that was kept is alone";
}

} // namespace
} // namespace sonavo
