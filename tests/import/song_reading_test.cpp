#include "generators/small_audio.h"
#include "import/song_reading.h"
#include "testing/audio_fixtures.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(LoadSong, TakesArtistTitleTypeAndFolderFromThePath)
{
    const struct
    {
        QString name, artist, title, fileType;
    } cases[] = {
        {u"Artist - Title.mp3"_s, u"Artist"_s, u"Title"_s, u"MP3"_s},
        {u"Alpha-Beta - Song.m4a"_s, u"Alpha"_s, u"Beta - Song"_s, u"M4A"_s},
        {u"  kept as it is\t.WaV"_s, u""_s, u"  kept as it is\t"_s, u"WAV"_s},
        {u" \tA \t-\t B\n.mp3"_s, u"A"_s, u"B\n"_s, u"MP3"_s},
        {u"\u00a0A\u00a0-\u3000B.mp3"_s, u"\u00a0A\u00a0"_s, u"\u3000B"_s, u"MP3"_s},
        {u"a.b-c.d.mp3-1"_s, u"a.b"_s, u"c.d"_s, u"MP3-1"_s},
        {u"dot."_s, u""_s, u"dot."_s, u""_s},
    };
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Music/Rock - Pop.old"_s));
    const SmallAudio audio = smallAudio(u"FLAC"_s, 2);
    for (const auto &[name, artist, title, fileType] : cases) {
        SCOPED_TRACE(name.toStdString());
        const QString path = writeFile(folder.filePath(u"Music/Rock - Pop.old/"_s + name), audio.content);
        const std::optional<Song> song = loadSong(path);
        ASSERT_TRUE(song);
        EXPECT_EQ(*song, (Song{song->id, path, name, 2.0, audio.content.size(), fileType, artist, title,
                               u"Rock - Pop.old"_s}));
        EXPECT_NE(song->id, loadSong(path)->id);
    }
}

TEST(LoadSong, GivesALinkItsOwnSizeButTheNoteOfItsFileAndNothingForFolderSettingsAndWhatCannotBeRead)
{
    const QTemporaryDir folder;
    const QByteArray content = smallAudio(u"FLAC"_s, 2).content;
    const QString path = writeFile(folder.filePath(u"x.flac"_s), content);
    const QString link = folder.filePath(u"link.flac"_s);
    ASSERT_TRUE(QFile::link(u"x.flac"_s, link));
    EXPECT_EQ(loadSong(link).value_or(Song()).size, 6);
    struct stat file = {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &file), 0);
    const qint64 modified = file.st_mtim.tv_sec * 1'000'000'000LL + file.st_mtim.tv_nsec;
    EXPECT_EQ(readAudioFile(link).value_or(AudioFileInfo()).note,
              (FileNote{file.st_dev, file.st_ino, content.size(), modified}));
    EXPECT_FALSE(loadSong(writeFile(folder.filePath(u"x.DS_Store"_s), content)));
    writeFile(path, "text");
    EXPECT_FALSE(loadSong(path));
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_FALSE(loadSong(path));
}

} // namespace
} // namespace sonavo
