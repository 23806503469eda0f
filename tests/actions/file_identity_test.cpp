#include "actions/file_identity.h"
#include "testing/audio_fixtures.h"
#include "testing/other_file_system.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

bool areOneFileAt(const QString &a, const QString &b)
{
    const auto identityOfA = identityOf(a);
    const auto identityOfB = identityOf(b);
    return identityOfA && identityOfB && areOneFile(*identityOfA, *identityOfB);
}

TEST(FileIdentity, SeesOneFileHoweverItIsReached)
{
    const QTemporaryDir folder;
    const QString song = folder.filePath(u"music/a.mp3"_s);
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"music/other"_s));
    writeFile(song, "song");
    ASSERT_TRUE(QFile::link(folder.filePath(u"music"_s), folder.filePath(u"linked"_s)));
    ASSERT_TRUE(QFile::link(song, folder.filePath(u"b.mp3"_s)));
    for (const QString &way : {u"music/a.mp3"_s, u"music/other/../a.mp3"_s, u"linked/a.mp3"_s, u"b.mp3"_s}) {
        EXPECT_TRUE(areOneFileAt(song, folder.filePath(way))) << way.toStdString();
        EXPECT_TRUE(areOneFileAt(folder.filePath(way), song)) << way.toStdString();
    }
}

TEST(FileIdentity, TellsCopiesAndHardLinksApart)
{
    const QTemporaryDir folder;
    const OtherFileSystem other;
    const QString song = folder.filePath(u"a.mp3"_s);
    const QString hardLink = folder.filePath(u"c.mp3"_s);
    writeFile(song, "song");
    std::filesystem::create_hard_link(song.toStdString(), hardLink.toStdString());
    EXPECT_FALSE(areOneFileAt(song, hardLink));
    for (const QString &copy : {folder.filePath(u"b.mp3"_s), other.pathOf(u"a.mp3"_s)}) {
        writeFile(copy, "song");
        EXPECT_FALSE(areOneFileAt(song, copy));
    }
}

TEST(FileIdentity, SeesOneHardLinkedFileThroughAMountOfItsFolder)
{
    const QTemporaryDir folder;
    const QString mountedAt = folder.filePath(u"mounted"_s);
    const QString music = folder.filePath(u"music"_s);
    ASSERT_TRUE(QDir(folder.path()).mkpath(mountedAt) && QDir(folder.path()).mkpath(music));
    writeFile(music + u"/a.mp3"_s, "song");
    std::filesystem::create_hard_link((music + u"/a.mp3"_s).toStdString(),
                                      (music + u"/b.mp3"_s).toStdString());
    PrivateMounts mounts;
    if (!mounts.areAllowed() || !mounts.mount(mountedAt.toStdString(), nullptr, MS_BIND, music.toStdString()))
        GTEST_SKIP() << "mounting is not allowed here";
    EXPECT_TRUE(areOneFileAt(music + u"/a.mp3"_s, mountedAt + u"/a.mp3"_s));
    EXPECT_FALSE(areOneFileAt(music + u"/a.mp3"_s, mountedAt + u"/b.mp3"_s));
}

TEST(FileIdentity, IsOnlyThereForAFileThatCanBeReached)
{
    const QTemporaryDir folder;
    const QString dangling = folder.filePath(u"dangling.mp3"_s);
    ASSERT_TRUE(QFile::link(u"nowhere"_s, dangling));
    EXPECT_FALSE(identityOf(dangling));
    EXPECT_FALSE(identityOf(folder.filePath(u"gone.mp3"_s)));
    EXPECT_FALSE(identityOf(folder.path()));
}

} // namespace
} // namespace sonavo
