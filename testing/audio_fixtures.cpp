#include "testing/audio_fixtures.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>

#include <unistd.h>

#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    constexpr int TIMEOUT_MS = 30'000;
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(TIMEOUT_MS) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        const QString command = program + u' ' + arguments.join(u' ');
        throw std::runtime_error(command.toStdString() + ": " + process.errorString().toStdString() + "\n" +
                                 process.readAllStandardError().toStdString());
    }
    return process.readAllStandardOutput();
}

const QString NOISE_AND_SILENCE = u"if(lt(mod(t\\,1.6)\\,0.8)\\,0.8*random(0)-0.4\\,0):s=44100"_s;

} // namespace

void writeSound(const QString &path, const QString &sound, double seconds, const QString &encoding)
{
    // Limits on length and size, for formulas and options that run away.
    Q_ASSERT(seconds > 0 && seconds <= 60);
    const QString length = QString::number(seconds);
    const QString source = u"aevalsrc=%1:d=%2"_s.arg(sound, length);
    outputOf(u"ffmpeg"_s, QStringList{u"-nostdin"_s, u"-y"_s, u"-loglevel"_s, u"error"_s, u"-f"_s, u"lavfi"_s,
                                      u"-i"_s, source, u"-t"_s, length, u"-fs"_s, u"6000000"_s} +
                              encoding.split(u' ', Qt::SkipEmptyParts) + QStringList{path});
}

QByteArray audioContent(const QString &type, double seconds, const QString &encoding)
{
    static QHash<QString, QByteArray> cache;
    const QString key = u"%1 %2 %3"_s.arg(type).arg(seconds).arg(encoding);
    if (!cache.contains(key)) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"audio."_s + type);
        writeSound(path, NOISE_AND_SILENCE, seconds, encoding);
        cache.insert(key, contentOf(path));
    }
    return cache.value(key);
}

double frameSeconds(const QString &path)
{
    const QByteArray fields =
        outputOf(u"ffprobe"_s, {u"-loglevel"_s, u"error"_s, u"-count_packets"_s, u"-show_entries"_s,
                                u"stream=codec_name,sample_rate,nb_read_packets"_s, u"-of"_s,
                                u"csv=print_section=0"_s, path});
    const QList<QByteArray> values = fields.trimmed().split(',');
    if (values.size() != 3)
        throw std::runtime_error("ffprobe found no frames in " + path.toStdString());
    const int sampleRate = values[1].toInt();
    const int samplesPerFrame = values[0] == "aac" ? 1024 : sampleRate >= 32'000 ? 1152 : 576;
    return values[2].toDouble() * samplesPerFrame / sampleRate;
}

QString writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw std::runtime_error("cannot write " + path.toStdString());
    return path;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
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
