#include "ui/results/group_arrangement.h"
#include "ui/results/group_texts.h"

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

Song songAt(const QString &path, qint64 size = 1)
{
    const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
    return {QUuid::createUuid(), path, name, 2.0, size, u"MP3"_s, {}, name, path.section(u'/', -2, -2)};
}

DuplicateGroup groupOf(const QStringList &paths, qint64 size = 1)
{
    DuplicateGroup group{QUuid::createUuid(), songAt(paths[0]), {}};
    for (const QString &path : paths.sliced(1))
        group.duplicates.append(songAt(path, size));
    return group;
}

TEST(GroupTexts, TellTheFoldersOfAGroupApart)
{
    const struct
    {
        QStringList paths, folders;
    } cases[] = {
        {{u"/music/a/000/x"_s, u"/music/b/000/x"_s}, {u"a/000"_s, u"b/000"_s}},
        {{u"/music/000/x"_s, u"/music/000/y"_s}, {u"000"_s, u"000"_s}},
        {{u"/music/x"_s, u"/music/old/x"_s}, {u"music"_s, u"music/old"_s}},
        {{u"/music/old/x"_s, u"/music/older/x"_s, u"/music/old/y"_s}, {u"old"_s, u"older"_s, u"old"_s}},
        {{u"/disk/a/x"_s, u"/media/a/x"_s}, {u"disk/a"_s, u"media/a"_s}},
        {{u"/x"_s, u"/media/x"_s}, {u""_s, u"media"_s}},
    };
    for (const auto &[paths, folders] : cases) {
        const DuplicateGroup group = groupOf(paths);
        const qsizetype length = commonFolderLength(group);
        QStringList texts{folderText(group.original, length)};
        for (const Song &duplicate : group.duplicates)
            texts.append(folderText(duplicate, length));
        EXPECT_EQ(texts, folders) << paths[0].toStdString();
    }
}

TEST(GroupArrangement, FindsWordsInNamesAndFoldersAndSortsStably)
{
    const QList<DuplicateGroup> groups{groupOf({u"/m/z/Song 10"_s, u"/m/q/Song 10"_s}, 3),
                                       groupOf({u"/m/a/song 9"_s, u"/m/Live/song 9"_s}, 5),
                                       groupOf({u"/m/B/Cafe\u0301"_s, u"/m/c/Other"_s, u"/m/d/o"_s}, 1),
                                       groupOf({u"/m/B/Z"_s, u"/m/c/Z"_s}, 3)};
    const auto shown = [&groups](const QString &filter, GroupOrder::Order order) {
        const auto result = arranged(groups, {.order = order, .filter = filter}, {});
        std::vector<std::string> names{std::to_string(result->hiddenDuplicates)};
        for (const DuplicateGroup &group : result->groups)
            names.push_back(group.original.name.toStdString());
        return names;
    };
    using GroupOrder::Order;
    EXPECT_THAT(shown(u"  SONG  live "_s, Order::AsFound), ElementsAre("4", "song 9"));
    EXPECT_THAT(shown(u"caf\u00e9"_s, Order::AsFound), ElementsAre("3", "Cafe\u0301"));
    EXPECT_THAT(shown(u"other /B/"_s, Order::AsFound), ElementsAre("5")) << "of two songs";
    EXPECT_THAT(shown({}, Order::Freed), ElementsAre("0", "song 9", "Song 10", "Z", "Cafe\u0301"));
    EXPECT_THAT(shown({}, Order::Name), ElementsAre("0", "Cafe\u0301", "song 9", "Song 10", "Z"));
    EXPECT_THAT(shown({}, Order::Folder), ElementsAre("0", "song 9", "Cafe\u0301", "Z", "Song 10"));
}

} // namespace
} // namespace sonavo
