#include "ui/results/group_texts.h"

#include "model/bit_rate.h"
#include "model/byte_count.h"
#include "model/saturating.h"
#include "model/visible_controls.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace sonavo {
namespace {

/// With the slash at its end.
QStringView folderOf(const Song &song)
{
    return QStringView(song.path).first(song.path.lastIndexOf(u'/') + 1);
}

QString translated(const char *text)
{
    return QCoreApplication::translate("DuplicateList", text);
}

} // namespace

QString subtitleOf(const DuplicateGroup &group)
{
    const Song &song = group.original;
    return withVisibleControls(song.artist.isEmpty() ? song.title
                                                     : song.artist + QStringLiteral(" \u2013 ") + song.title);
}

qint64 freedBytes(const DuplicateGroup &group)
{
    qint64 bytes = 0;
    for (const Song &duplicate : group.duplicates)
        bytes = saturatingSum(bytes, duplicate.size);
    return bytes;
}

qsizetype commonFolderLength(const DuplicateGroup &group)
{
    const QStringView first = folderOf(group.original);
    qsizetype common = first.size();
    qsizetype shortest = first.size();
    bool differ = false;
    for (const Song &duplicate : group.duplicates) {
        const QStringView folder = folderOf(duplicate);
        const auto end = std::mismatch(first.begin(), first.begin() + common, folder.begin(), folder.end());
        differ = differ || folder != first;
        common = first.first(end.first - first.begin()).lastIndexOf(u'/') + 1;
        shortest = std::min(shortest, folder.size());
    }
    if (!differ)
        return 0;
    // A file that lies in the common folder itself would have nothing left.
    return shortest > common || common == 0 ? common : first.first(common - 1).lastIndexOf(u'/') + 1;
}

QString folderText(const Song &song, qsizetype commonLength)
{
    if (commonLength <= 0)
        return withVisibleControls(song.folderName);
    const QString rest = folderOf(song).sliced(commonLength).toString();
    return withVisibleControls(rest.endsWith(u'/') ? rest.chopped(1) : rest);
}

QString qualityText(const Song &song)
{
    QStringList parts;
    if (const std::optional<double> rate = kilobitsPerSecond(song))
        parts.append(translated("%1 kbit/s").arg(QString::number(*rate, 'f', 0)));
    if (song.fileType == QStringLiteral("FLAC") || song.fileType == QStringLiteral("WAV"))
        parts.append(translated("lossless"));
    return parts.join(QStringLiteral(", "));
}

QString detailsText(const Song &song, const QDateTime &modified)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    QStringList lines{withVisibleControls(song.path)};
    lines.append(translated("%1 (%2 bytes)").arg(formattedByteCount(song.size), locale.toString(song.size)));
    QStringList sound{song.formattedDuration()};
    if (const QString quality = qualityText(song); !quality.isEmpty())
        sound.append(quality);
    lines.append(sound.join(QStringLiteral(", ")));
    if (modified.isValid())
        lines.append(translated("Changed %1").arg(modified.toString(QStringLiteral("yyyy-MM-dd HH:mm"))));
    return lines.join(u'\n');
}

} // namespace sonavo
