#include "generators/small_audio.h"
#include "import/song_reading.h"
#include "testing/audio_fixtures.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ctime>
#include <functional>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A song of two seconds that was last modified an hour ago.
class KnownDurationsTest : public testing::Test
{
protected:
    /// @param age how long ago the file was modified, in seconds
    void setAge(const QString &path, time_t age) const
    {
        const struct timespec time
        {
            .tv_sec = start - age, .tv_nsec = 0
        };
        const struct timespec times[] = {time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
    }
    QString writeSong(const QString &name, int seconds)
    {
        QString path = writeFile(folder.filePath(name), smallAudio(u"FLAC"_s, seconds).content);
        setAge(path, HOUR);
        return path;
    }
    /// @return the playing time, and whether the file was read for it
    std::pair<double, bool> read(const QString &name)
    {
        ReadCounter reads = 0;
        const auto info = readAudioFile(folder.filePath(name), {}, &reads, &known);
        return {info.value_or(AudioFileInfo{-1.0}).duration, reads > 0};
    }

    static constexpr time_t HOUR = 3600;
    const time_t start = std::time(nullptr);
    const QTemporaryDir folder;
    KnownDurations known;
};

TEST_F(KnownDurationsTest, AFileIsReadAgainOnlyAfterAChange)
{
    const QString path = writeSong(u"x.flac"_s, 2);
    EXPECT_EQ(read(u"x.flac"_s), std::pair(2.0, true));
    EXPECT_EQ(read(u"x.flac"_s), std::pair(2.0, false));
    const struct
    {
        const char *name;
        std::function<void()> change;
        double duration;
    } changes[] = {
        {"another file of the same size and time in its place",
         [&] { ASSERT_EQ(::rename(qPrintable(writeSong(u"y.flac"_s, 3)), qPrintable(path)), 0); }, 3.0},
        {"written to, and its time set back", [&] { writeSong(u"x.flac"_s, 4); }, 4.0},
        {"a new time", [&] { setAge(path, 2 * HOUR); }, 4.0},
        {"gone", [&] { ASSERT_EQ(::rename(qPrintable(path), qPrintable(path + u"_"_s)), 0); }, -1.0},
    };
    for (const auto &[name, change, duration] : changes) {
        SCOPED_TRACE(name);
        change();
        EXPECT_EQ(read(u"x.flac"_s), std::pair(duration, duration > 0.0));
        EXPECT_EQ(read(u"x.flac"_s), std::pair(duration, false));
    }
    // Under another name too.
    EXPECT_EQ(read(u"x.flac_"_s), std::pair(4.0, true));
}

TEST_F(KnownDurationsTest, WhatMayChangeWithoutATraceAndWhatFailedIsAlwaysReadAgain)
{
    for (const time_t age : {-HOUR, time_t{0}, time_t{1}}) {
        setAge(writeSong(u"x.flac"_s, 2), age);
        EXPECT_EQ(read(u"x.flac"_s), std::pair(2.0, true));
        EXPECT_EQ(read(u"x.flac"_s), std::pair(2.0, true)) << age;
    }
    setAge(writeFile(folder.filePath(u"x.mp3"_s), "text"), HOUR);
    EXPECT_EQ(read(u"x.mp3"_s), std::pair(-1.0, true));
    EXPECT_EQ(read(u"x.mp3"_s), std::pair(-1.0, true));
}

} // namespace
} // namespace sonavo
