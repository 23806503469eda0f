#include "actions/file_identity.h"
#include "support/audio_fixtures.h"
#include "support/other_file_system.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>

namespace sonavo {
namespace {

bool areOneFileAt(const QString &a, const QString &b)
{
    const auto identityOfA = identityOf(a);
    const auto identityOfB = identityOf(b);
    return identityOfA && identityOfB && areOneFile(*identityOfA, *identityOfB);
}

TEST(FileIdentity, SeesOneFileHoweverItIsReached)
{
    const QTemporaryDir folder;
    const QString song = folder.filePath(QStringLiteral("music/a.mp3"));
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("music/other")));
    writeFile(song, "song");

    EXPECT_TRUE(areOneFileAt(song, song));
    EXPECT_TRUE(areOneFileAt(song, folder.filePath(QStringLiteral("music/other/../a.mp3"))));

    const QString linkedFolder = folder.filePath(QStringLiteral("linked"));
    ASSERT_TRUE(QFile::link(folder.filePath(QStringLiteral("music")), linkedFolder));
    EXPECT_TRUE(areOneFileAt(song, linkedFolder + QStringLiteral("/a.mp3")));

    const QString linkedSong = folder.filePath(QStringLiteral("b.mp3"));
    ASSERT_TRUE(QFile::link(song, linkedSong));
    EXPECT_TRUE(areOneFileAt(song, linkedSong));
    EXPECT_TRUE(areOneFileAt(linkedSong, song));
}

TEST(FileIdentity, TellsCopiesAndHardLinksApart)
{
    const QTemporaryDir folder;
    const QString song = folder.filePath(QStringLiteral("a.mp3"));
    const QString copy = folder.filePath(QStringLiteral("b.mp3"));
    const QString hardLink = folder.filePath(QStringLiteral("c.mp3"));
    writeFile(song, "song");
    writeFile(copy, "song");
    EXPECT_FALSE(areOneFileAt(song, copy));
    std::filesystem::create_hard_link(song.toStdString(), hardLink.toStdString());
    EXPECT_FALSE(areOneFileAt(song, hardLink));

    const OtherFileSystem other;
    writeFile(other.pathOf(QStringLiteral("a.mp3")), "song");
    EXPECT_FALSE(areOneFileAt(song, other.pathOf(QStringLiteral("a.mp3"))));
}

TEST(FileIdentity, SeesOneHardLinkedFileThroughAMountOfItsFolder)
{
    const QTemporaryDir folder;
    const QString mountedAt = folder.filePath(QStringLiteral("mounted"));
    const QString music = folder.filePath(QStringLiteral("music"));
    ASSERT_TRUE(QDir(folder.path()).mkpath(mountedAt) && QDir(folder.path()).mkpath(music));
    writeFile(music + QStringLiteral("/a.mp3"), "song");
    std::filesystem::create_hard_link((music + QStringLiteral("/a.mp3")).toStdString(),
                                      (music + QStringLiteral("/b.mp3")).toStdString());
    if (::mount(QFile::encodeName(music).constData(), QFile::encodeName(mountedAt).constData(), nullptr,
                MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "no right to mount a folder in a second place";
    EXPECT_TRUE(areOneFileAt(music + QStringLiteral("/a.mp3"), mountedAt + QStringLiteral("/a.mp3")));
    EXPECT_FALSE(areOneFileAt(music + QStringLiteral("/a.mp3"), mountedAt + QStringLiteral("/b.mp3")));
    ::umount2(QFile::encodeName(mountedAt).constData(), MNT_DETACH);
}

TEST(FileIdentity, IsOnlyThereForAFileThatCanBeReached)
{
    const QTemporaryDir folder;
    const QString dangling = folder.filePath(QStringLiteral("dangling.mp3"));
    ASSERT_TRUE(QFile::link(QStringLiteral("nowhere"), dangling));
    EXPECT_FALSE(identityOf(dangling));
    EXPECT_FALSE(identityOf(folder.filePath(QStringLiteral("gone.mp3"))));
    EXPECT_FALSE(identityOf(folder.path()));
}

} // namespace
} // namespace sonavo
