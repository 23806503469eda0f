#include "model/song.h"

#include "model/local_digits.h"

#include <QHashFunctions>

#include <algorithm>

namespace sonavo {
namespace {

QString canonicalForm(const QString &text)
{
    const bool isAscii = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
    return isAscii ? text : text.normalized(QString::NormalizationForm_D);
}

bool canonicallyEqual(const QString &a, const QString &b)
{
    return a == b || canonicalForm(a) == canonicalForm(b);
}

} // namespace

qint64 wholeSeconds(double duration)
{
    constexpr double LIMIT = 0x1p63;
    if (!(duration >= -LIMIT && duration < LIMIT))
        qFatal("A song's duration must be finite and fit 64 bits.");
    return static_cast<qint64>(duration);
}

QString Song::formattedDuration() const
{
    const qint64 seconds = wholeSeconds(duration);
    return withLocalDigits(QString::asprintf("%lld:%02lld", static_cast<long long>(seconds / 60),
                                             static_cast<long long>(seconds % 60)));
}

bool operator==(const Song &a, const Song &b)
{
    return a.id == b.id && canonicallyEqual(a.path, b.path) && canonicallyEqual(a.name, b.name) &&
           a.duration == b.duration && a.size == b.size && canonicallyEqual(a.fileType, b.fileType) &&
           canonicallyEqual(a.artist, b.artist) && canonicallyEqual(a.title, b.title) &&
           canonicallyEqual(a.folderName, b.folderName);
}

size_t qHash(const Song &song, size_t seed)
{
    // qHash() gives -0.0 and 0.0 the same hash, consistent with ==.
    return qHashMulti(seed, song.id, canonicalForm(song.path), canonicalForm(song.name), song.duration,
                      song.size, canonicalForm(song.fileType), canonicalForm(song.artist),
                      canonicalForm(song.title), canonicalForm(song.folderName));
}

} // namespace sonavo
