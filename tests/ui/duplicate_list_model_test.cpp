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

QString textOf(const Song &song, bool isOriginal)
{
    return (isOriginal ? QStringLiteral("Original ") : QStringLiteral("Duplicate ")) + song.path;
}

/// What a view shows that hears of the model's changes alone: a header's title, a song's badge and path.
class View
{
public:
    explicit View(const DuplicateListModel &model)
        : m_model(model)
    {
        const auto insert = [this](const QModelIndex &, int first, int last) {
            for (int row = first; row <= last; ++row)
                rows.insert(row, text(row));
        };
        const auto remove = [this](const QModelIndex &, int first, int last) {
            rows.remove(first, last - first + 1);
        };
        const auto update = [this](const QModelIndex &first, const QModelIndex &last) {
            for (int row = first.row(); row <= last.row(); ++row)
                rows[row] = text(row);
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, insert);
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, remove);
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, update);
        insert({}, 0, model.rowCount() - 1);
    }

    QStringList rows;

private:
    [[nodiscard]] QString text(int row) const
    {
        const QVariant song = m_model.songAt(row);
        const auto data = [&](int role) { return m_model.data(m_model.index(row), role); };
        return song.isValid() ? textOf(song.value<Song>(), data(DuplicateListModel::IsOriginalRole).toBool())
                              : data(DuplicateListModel::TitleRole).toString();
    }

    const DuplicateListModel &m_model;
};

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
        rows.append({textOf(group.original, true), {}});
        for (const Song &duplicate : group.duplicates)
            rows.append({textOf(duplicate, false), {}});
    }
    return rows;
}

TEST(DuplicateListModel, FollowsAnyCourseOfStepsAndUndosRowByRow)
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
    const View view(model);
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
            const auto step = random() % 8;
            step == 0   ? session.keepSong(song.value<Song>())
            : step == 1 ? session.excludeFromDuplicates(song.value<Song>())
            : step == 2 ? session.keepCopiesInFolderOf(song.value<Song>())
                        : session.deleteSong(song.value<Song>());
            ASSERT_TRUE(finishJob());
        } else {
            const QUuid group = expectedRows(session, collapsed).value(row).second;
            if (!group.isNull() && !collapsed.remove(group))
                collapsed.insert(group);
            model.setExpanded(row, !model.isExpanded(row));
        }
        ASSERT_TRUE(model.isEmpty() || view.rows == expectedTexts());
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
    EXPECT_EQ(view.rows, expectedTexts());
    session.clearAll();
    EXPECT_EQ(model.rowCount(), 0);
    settle();
}

} // namespace
} // namespace sonavo
