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

TEST(DuplicateListModel, FollowsAnyCourseOfDeletesAndUndosRowByRow)
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

    const auto finishJob = [&session] {
        return QTest::qWaitFor([&session] { return !session.isCleaningUp(); }, 20'000);
    };
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSet<QUuid> collapsed;
    const auto expectedTexts = [&] {
        QStringList texts;
        for (const auto &row : expectedRows(session, collapsed))
            texts.append(row.first);
        return texts;
    };
    std::mt19937 random(7);
    int undone = 0;
    while (!model.isEmpty()) {
        // Now and then beyond the ends, where there is nothing.
        const int row = static_cast<int>(random() % static_cast<unsigned>(model.rowCount() + 2)) - 1;
        const QVariant song = model.songAt(row);
        if (random() % 4 == 0 && !session.undoText().isEmpty()) {
            ++undone;
            session.undo();
            ASSERT_TRUE(finishJob());
        } else if (song.isValid()) {
            session.deleteSong(song.value<Song>());
            ASSERT_TRUE(finishJob());
        } else {
            const QUuid group = expectedRows(session, collapsed).value(row).second;
            if (!group.isNull() && !collapsed.remove(group))
                collapsed.insert(group);
            model.setExpanded(row, !model.isExpanded(row));
        }
        ASSERT_TRUE(model.isEmpty() || rowsOf(model) == expectedTexts());
    }
    EXPECT_GT(undone, 3);
    // From and to nothing, by one step as by many.
    while (!session.undoText().isEmpty()) {
        session.undo();
        ASSERT_TRUE(finishJob());
    }
    session.cleanupAll();
    ASSERT_TRUE(finishJob());
    EXPECT_TRUE(model.isEmpty());
    session.undo();
    ASSERT_TRUE(finishJob());
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(rowsOf(model), expectedTexts());
    session.clearAll();
    EXPECT_EQ(model.rowCount(), 0);
    settle();
}

} // namespace
} // namespace sonavo
