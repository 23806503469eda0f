#include "bench/song_files.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>

#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

struct Encoding
{
    QString type;
    /// Seconds that take about 4 MB.
    int length;
    QString options;
};

Encoding encodingOf(SongKind kind)
{
    switch (kind) {
    case SongKind::Mp3:
        return {u"mp3"_s, 255, u"-b:a 128k"_s};
    case SongKind::OldMp3:
        return {u"mp3"_s, 255, u"-b:a 128k -write_xing 0 -id3v2_version 0"_s};
    case SongKind::Flac:
        return {u"flac"_s, 60, u""_s};
    case SongKind::M4a:
        return {u"m4a"_s, 255, u"-c:a aac -b:a 128k"_s};
    case SongKind::Wav:
        return {u"wav"_s, 24, u""_s};
    case SongKind::Aac:
        return {u"aac"_s, 255, u"-b:a 128k"_s};
    }
    return {};
}

void runFfmpeg(const QStringList &arguments)
{
    if (QProcess::execute(u"ffmpeg"_s, u"-nostdin -y -loglevel error"_s.split(u' ') + arguments) != 0)
        throw std::runtime_error("ffmpeg fails");
}

} // namespace

QStringList encodeSongs(SongKind kind, const QString &folder, int count)
{
    const Encoding encoding = encodingOf(kind);
    const QString longest = folder + u"/0."_s + encoding.type;
    const QString sound =
        u"aevalsrc=0.02*random(0)-0.01+0.3*sin(2000*t)|0.3*sin(2000*t):s=44100:d=%1"_s.arg(encoding.length);
    const QStringList options = encoding.options.split(u' ', Qt::SkipEmptyParts);
    runFfmpeg(QStringList{u"-f"_s, u"lavfi"_s, u"-i"_s, sound} + options + QStringList{longest});
    QStringList paths{longest};
    for (int i = 1; i < count; ++i) {
        paths += u"%1/%2.%3"_s.arg(folder).arg(i).arg(encoding.type);
        const double length = encoding.length * (1.0 - 0.6 * i / count);
        QStringList copying{u"-i"_s, longest, u"-t"_s, QString::number(length), u"-c"_s, u"copy"_s};
        if (kind == SongKind::OldMp3)
            copying += {u"-write_xing"_s, u"0"_s, u"-id3v2_version"_s, u"0"_s};
        runFfmpeg(copying + QStringList{paths.back()});
    }
    return paths;
}

QStringList linkSongs(const QList<Song> &library, const QString &folder, const QList<SongKind> &kinds)
{
    constexpr int LENGTHS = 40;
    QHash<SongKind, QStringList> encoded;
    for (const SongKind kind : kinds) {
        const QString place = u"%1/%2"_s.arg(folder).arg(static_cast<int>(kind));
        if (!encoded.contains(kind) && QDir().mkpath(place))
            encoded.insert(kind, encodeSongs(kind, place, LENGTHS));
    }
    QStringList paths;
    for (qsizetype i = 0; i < library.size(); ++i) {
        const SongKind kind = kinds[i % kinds.size()];
        const QString &path = library[i].path;
        // Another song of the library can have the name that the new extension gives.
        const QString stem = path.first(path.lastIndexOf(u'.')) + u" %1."_s.arg(i % 10);
        paths += stem + encodingOf(kind).type;
        const QString &source = encoded[kind][i / kinds.size() % LENGTHS];
        if (!QDir().mkpath(path.first(path.lastIndexOf(u'/'))) ||
            ::link(QFile::encodeName(source), QFile::encodeName(paths.back())) != 0)
            throw std::runtime_error("cannot create a link to " + source.toStdString());
    }
    return paths;
}

QList<SongKind> allKinds()
{
    using enum SongKind;
    const std::pair<SongKind, int> shares[] = {{Mp3, 60}, {Flac, 20}, {M4a, 12}, {Wav, 5}, {Aac, 3}};
    QList<SongKind> kinds(100);
    int next = 0;
    for (const auto &[kind, share] : shares) {
        // 37 and 100 have no common divisor, so every place is met once.
        for (int i = 0; i < share; ++i)
            kinds[next++ * 37 % 100] = kind;
    }
    return kinds;
}

} // namespace sonavo
