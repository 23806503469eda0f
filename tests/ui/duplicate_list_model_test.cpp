#include "actions/headless_desktop.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"
#include "ui/results/duplicate_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <random>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

class DuplicateListModelTest : public testing::Test
{
protected:
    /// Toasts that wait to be hidden come to their end.
    void TearDown() override { settle(); }

    void scanGroups(const QList<int> &sizes)
    {
        m_music.addGroups(sizes);
        session.startScan(m_music.urls());
        finishScan(session);
        ASSERT_EQ(session.duplicateGroups().size(), sizes.size());
        model.setViewModel(&session);
    }

    /// The rows as a person reads them: "v Group of 2 songs", "O 0", "D 1" (the number is that of the
    /// folder).
    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row);
            const auto song = index.data(DuplicateListModel::SongRole).value<Song>();
            const bool isHeader = index.data(DuplicateListModel::KindRole).toString() == u"header"_s;
            const bool isExpanded = index.data(DuplicateListModel::IsExpandedRole).toBool();
            const bool isOriginal = index.data(DuplicateListModel::IsOriginalRole).toBool();
            rows.push_back(isHeader ? (isExpanded ? "v " : "> ") +
                                          index.data(DuplicateListModel::TitleRole).toString().toStdString()
                                    : (isOriginal ? "O " : "D ") + song.folderName.toStdString());
        }
        return rows;
    }
    [[nodiscard]] Song songAt(int row) const { return model.songAt(row).value<Song>(); }

    const PrivateHome home;
    HeadlessDesktop desktop;
    DuplicateViewModel session{desktop, std::make_shared<InstantPauses>(), QList<Color>(6)};
    DuplicateListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

private:
    const MusicFolder m_music{};
};

TEST_F(DuplicateListModelTest, HasNothingBeyondItsEnds)
{
    scanGroups({2});
    for (const int row : {-1, 3}) {
        EXPECT_FALSE(model.songAt(row).isValid());
        EXPECT_EQ(model.headerRow(row), -1);
        model.setExpanded(row, false);
    }
    EXPECT_THAT(rows(), ElementsAre("v Group of 2 songs", "O 0", "D 1"));
}

TEST_F(DuplicateListModelTest, FollowsAnyCourseOfActionsRowByRow)
{
    scanGroups({2, 5, 3, 2, 4, 3, 2});
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSet<QUuid> collapsed;
    const auto shownGroups = [this] {
        QList<DuplicateGroup> shown = session.duplicateGroups();
        shown.removeIf([](const DuplicateGroup &group) { return group.duplicates.isEmpty(); });
        return shown;
    };
    const auto expectedRows = [&] {
        std::vector<std::string> expected;
        for (const DuplicateGroup &group : shownGroups()) {
            const bool isCollapsed = collapsed.contains(group.id);
            expected.push_back((isCollapsed ? "> Group of " : "v Group of ") +
                               std::to_string(group.duplicates.size() + 1) + " songs");
            if (isCollapsed)
                continue;
            expected.push_back("O " + group.original.folderName.toStdString());
            for (const Song &song : group.duplicates)
                expected.push_back("D " + song.folderName.toStdString());
        }
        return expected;
    };
    std::mt19937 random(7);
    while (model.rowCount() > 0) {
        const int row = static_cast<int>(random() % static_cast<unsigned>(model.rowCount()));
        if (model.songAt(row).isValid()) {
            session.deleteSong(songAt(row));
        } else {
            // Which group it is, told by its place among those that are shown.
            int place = -1;
            for (int above = 0; above <= row; ++above)
                place += model.songAt(above).isValid() ? 0 : 1;
            const QUuid id = shownGroups()[place].id;
            if (!collapsed.remove(id))
                collapsed.insert(id);
            model.setExpanded(row, !model.isExpanded(row));
        }
        ASSERT_EQ(rows(), expectedRows());
    }
    EXPECT_EQ(resets.size(), 1) << "when nothing is left";
}

} // namespace
} // namespace sonavo
