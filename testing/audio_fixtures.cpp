#include "testing/audio_fixtures.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <unistd.h>

#include <stdexcept>

namespace sonavo {

using namespace Qt::Literals::StringLiterals;

void writeSound(const QString &path, const QString &sound, double seconds, const QString &encoding)
{
    // Limits on length and size, for formulas and options that run away.
    Q_ASSERT(seconds > 0 && seconds <= 60);
    QStringList arguments = u"-nostdin -y -loglevel error -f lavfi -i"_s.split(u' ');
    arguments << u"aevalsrc=%1:d=%2"_s.arg(sound).arg(seconds) << u"-fs"_s << u"6000000"_s;
    if (QProcess::execute(u"ffmpeg"_s, arguments + encoding.split(u' ', Qt::SkipEmptyParts) << path) != 0)
        throw std::runtime_error("ffmpeg cannot write " + path.toStdString());
}

QByteArray audioContent(const QString &type, double seconds, const QString &encoding)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"audio."_s + type);
    writeSound(path, u"if(lt(mod(t\\,1.6)\\,0.8)\\,0.8*random(0)-0.4\\,0):s=44100"_s, seconds, encoding);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw std::runtime_error("cannot write " + path.toStdString());
    return path;
}

QStringList fillWithSongs(const QString &folder, int count)
{
    constexpr auto SAMPLE = SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3";
    QDir().mkpath(folder);
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths += u"%1/%2.mp3"_s.arg(folder).arg(i);
        if (i == 0 ? !QFile::copy(QString::fromUtf8(SAMPLE), paths[0])
                   : ::link(QFile::encodeName(paths[0]), QFile::encodeName(paths[i])) != 0)
            throw std::runtime_error("cannot fill " + folder.toStdString());
    }
    return paths;
}

} // namespace sonavo
