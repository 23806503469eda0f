#include "actions/headless_desktop.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"
#include "ui/results/duplicate_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <random>

namespace sonavo {
namespace {

/// The rows of the results as the model has them: a header's title, a song's path.
QStringList rowsOf(const DuplicateListModel &model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QVariant song = model.songAt(row);
        rows.append(song.isValid() ? song.value<Song>().path
                                   : model.data(model.index(row), DuplicateListModel::TitleRole).toString());
    }
    return rows;
}

/// The rows as they should be, each with the group of a header.
QList<std::pair<QString, QUuid>> expectedRows(const DuplicateViewModel &session, const QSet<QUuid> &collapsed)
{
    QList<std::pair<QString, QUuid>> rows;
    for (const DuplicateGroup &group : session.duplicateGroups()) {
        if (group.duplicates.isEmpty())
            continue;
        rows.append({QStringLiteral("Group of %1 songs").arg(group.duplicates.size() + 1), group.id});
        if (collapsed.contains(group.id))
            continue;
        rows.append({group.original.path, {}});
        for (const Song &duplicate : group.duplicates)
            rows.append({duplicate.path, {}});
    }
    return rows;
}

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
            const QUuid group = expectedRows(session, collapsed).value(row).second;
            if (!group.isNull() && !collapsed.remove(group))
                collapsed.insert(group);
            model.setExpanded(row, !model.isExpanded(row));
        }
        QStringList expected;
        for (const auto &[text, group] : expectedRows(session, collapsed))
            expected.append(text);
        ASSERT_EQ(rowsOf(model), expected);
    }
    EXPECT_EQ(resets.size(), 1) << "when nothing is left";
    settle();
}

} // namespace
} // namespace sonavo
