#include "testing/audio_fixtures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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
    constexpr int PATIENCE_MS = 30'000;
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(PATIENCE_MS) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        const QString command = program + u' ' + arguments.join(u' ');
        throw std::runtime_error(command.toStdString() + ": " + process.errorString().toStdString() + "\n" +
                                 process.readAllStandardError().toStdString());
    }
    return process.readAllStandardOutput();
}

const QString NOISE_AND_SILENCE = u"if(lt(mod(t\\,1.6)\\,0.8)\\,0.8*random(0)-0.4\\,0):s=44100"_s;

/// Runs ffmpeg on a sound, with limits on length and size.
QByteArray encode(const QString &sound, double seconds, const QStringList &output)
{
    Q_ASSERT(seconds > 0 && seconds <= 60);
    const QString length = QString::number(seconds);
    return outputOf(u"ffmpeg"_s, QStringList{u"-nostdin"_s, u"-y"_s, u"-loglevel"_s, u"error"_s, u"-f"_s,
                                             u"lavfi"_s, u"-i"_s, u"aevalsrc=%1:d=%2"_s.arg(sound, length),
                                             u"-t"_s, length, u"-fs"_s, u"6000000"_s} +
                                     output);
}

} // namespace

QByteArray audioContent(const QString &type, double seconds, const QString &encoding)
{
    static QHash<QString, QByteArray> made;
    const QString key = u"%1 %2 %3"_s.arg(type).arg(seconds).arg(encoding);
    if (!made.contains(key)) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"audio."_s + type);
        encode(NOISE_AND_SILENCE, seconds, encoding.split(u' ', Qt::SkipEmptyParts) << path);
        made.insert(key, contentOf(path));
    }
    return made.value(key);
}

QByteArray pipedAudioContent(const QString &format, double seconds)
{
    return encode(NOISE_AND_SILENCE, seconds, {u"-f"_s, format, u"pipe:1"_s});
}

void writeSound(const QString &path, const QString &sound, double seconds, const QString &encoding)
{
    encode(sound, seconds, encoding.split(u' ', Qt::SkipEmptyParts) << path);
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

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw std::runtime_error("cannot write " + path.toStdString());
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
}

void writeAudio(const QString &path, double seconds, const QString &encoding)
{
    writeFile(path, audioContent(QFileInfo(path).suffix().toLower(), seconds, encoding));
}

void fillWithSongs(const QString &folder, int count)
{
    QDir().mkpath(folder);
    const QString first = folder + u"/0.mp3"_s;
    bool isDone = QFile::copy(QStringLiteral(SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3"), first);
    for (int i = 1; i < count; ++i) {
        const QByteArray next = QFile::encodeName(u"%1/%2.mp3"_s.arg(folder).arg(i));
        isDone = isDone && ::link(QFile::encodeName(first).constData(), next.constData()) == 0;
    }
    if (!isDone)
        throw std::runtime_error("cannot fill " + folder.toStdString());
}

} // namespace sonavo
