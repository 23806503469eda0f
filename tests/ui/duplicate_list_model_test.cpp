#include "actions/headless_desktop.h"
#include "testing/list_rows.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <random>

namespace sonavo {
namespace {

TEST(DuplicateListModel, FollowsAnyCourseOfActionsRowByRow)
{
    const MusicFolder music;
    music.addGroups({2, 5, 3, 2, 4, 3, 2});
    const PrivateHome home;
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<InstantPauses>(), QList<Color>(6));
    DuplicateListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    session.startScan(music.urls());
    finishScan(session);
    model.setViewModel(&session);
    ASSERT_EQ(model.rowCount(), 7 + 21);

    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSet<QUuid> collapsed;
    std::mt19937 random(7);
    while (model.rowCount() > 0) {
        // Now and then beyond the ends, where there is nothing.
        const int row = static_cast<int>(random() % static_cast<unsigned>(model.rowCount() + 2)) - 1;
        const QVariant song = model.songAt(row);
        if (song.isValid()) {
            session.deleteSong(song.value<Song>());
        } else {
            expectedRows(session.duplicateGroups(), [&](const DuplicateGroup &group, int header) {
                if (header == row && !collapsed.remove(group.id))
                    collapsed.insert(group.id);
                return !collapsed.contains(group.id);
            });
            model.setExpanded(row, !model.isExpanded(row));
        }
        ASSERT_EQ(rowsOf(model), expectedRows(session.duplicateGroups(), [&](const auto &group, int) {
                      return !collapsed.contains(group.id);
                  }));
    }
    EXPECT_EQ(resets.size(), 1) << "when nothing is left";
    settle();
}

} // namespace
} // namespace sonavo
