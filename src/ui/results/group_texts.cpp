#include "ui/results/group_texts.h"

#include "model/bit_rate.h"
#include "model/byte_count.h"
#include "model/saturating.h"
#include "model/translate.h"
#include "model/visible_controls.h"

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

/// English has a form of its own.
QString dateText(const QDateTime &date)
{
    const QLocale locale;
    return locale.language() == QLocale::English ? date.toString(QStringLiteral("yyyy-MM-dd HH:mm"))
                                                 : locale.toString(date, QLocale::ShortFormat);
}

} // namespace

QString joinedParts(const QStringList &parts)
{
    return parts.join(translate("DuplicateList", ", ", "between the parts of a description"));
}

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
    return pathInText(rest.endsWith(u'/') ? rest.chopped(1) : rest);
}

QString qualityText(const Song &song, bool isLossless)
{
    QStringList parts;
    if (const std::optional<double> rate = kilobitsPerSecond(song))
        parts.append(translate("DuplicateList", "%1 kbit/s").arg(*rate, 0, 'f', 0));
    if (isLossless)
        parts.append(translate("DuplicateList", "lossless", "the kind of a sound file"));
    return joinedParts(parts);
}

QString detailsText(const Song &song, const QString &quality, const QDateTime &modified)
{
    QStringList lines{pathInText(song.path)};
    lines.append(translate("DuplicateList", "%1 (%L2 bytes)", "a size in short, and in full")
                     .arg(formattedByteCount(song.size))
                     .arg(song.size));
    QStringList sound{song.formattedDuration()};
    if (!quality.isEmpty())
        sound.append(quality);
    lines.append(joinedParts(sound));
    if (modified.isValid())
        lines.append(translate("DuplicateList", "Changed %1", "%1 is when a file was changed")
                         .arg(dateText(modified)));
    return lines.join(u'\n');
}

} // namespace sonavo
