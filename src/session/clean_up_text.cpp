#include "session/clean_up_text.h"

#include "model/byte_count.h"
#include "model/translate.h"
#include "model/visible_controls.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace sonavo {

using namespace std::chrono_literals;

namespace {

QString separator()
{
    return QStringLiteral(" \u2022 ");
}

} // namespace

QString moreFoundText(qint64 duplicates)
{
    return duplicates == 0 ? translate("CleanUpText", "No more duplicates found")
                           : translate("CleanUpText", "%Ln more duplicates found", nullptr, duplicates);
}

QString descriptionOf(const DuplicateTotals &duplicates, CleanUpTarget target)
{
    if (duplicates.count == 0)
        return noDuplicatesText();
    const QString text =
        target == CleanUpTarget::Trash
            ? translate("CleanUpText", "Move %Ln duplicates (%1) to the Trash", nullptr, duplicates.count)
            : translate("CleanUpText", "Move %Ln duplicates (%1) to a folder", nullptr, duplicates.count);
    return text.arg(formattedByteCount(duplicates.bytes));
}

QString noDuplicatesText()
{
    return translate("CleanUpText", "No duplicates to move");
}

QString toastText(const CleanUpSummary &summary)
{
    const auto moved = [&summary] {
        if (summary.target == CleanUpTarget::Trash)
            return translate("CleanUpText", "Moved %n files to Trash", nullptr, summary.moved);
        // The folder is named only when nothing has failed.
        return summary.failures.isEmpty()
                   ? translate("CleanUpText", "Moved %n files to folder", nullptr, summary.moved)
                   : translate("CleanUpText", "Moved %n files", nullptr, summary.moved);
    };
    QStringList parts{moved()};
    if (!summary.failures.isEmpty())
        parts.append(translate("CleanUpText", "%n failed", "files", summary.failures.size()));
    if (summary.notReached > 0)
        parts.append(translate("CleanUpText", "%n not moved", "files", summary.notReached));
    if (parts.size() == 1) {
        //: %1 is a size, as in "Saved 84.3 MB"
        parts.append(translate("CleanUpText", "Saved %1").arg(formattedByteCount(summary.saved)));
    }
    return parts.join(separator());
}

QString headlineOf(const CleanUpSummary &summary)
{
    if (summary.moved == 0)
        return translate("CleanUpText", "No files were moved");
    const QString text =
        summary.target == CleanUpTarget::Trash
            ? translate("CleanUpText", "%Ln files moved to the Trash", nullptr, summary.moved)
            : translate("CleanUpText", "%Ln files moved to a folder", nullptr, summary.moved);
    return text + separator() + formattedByteCount(summary.saved);
}

QString remainingText(qint64 songs)
{
    return translate("CleanUpText", "%Ln songs remain", "in the list", songs);
}

QString lossesText(const QStringList &attributes, qint64 songs)
{
    if (attributes.isEmpty())
        return {};
    //: %1 lists names of extended attributes of the file system
    return translate("CleanUpText", "The new disk could not store all attributes of %Ln songs: %1", nullptr,
                     songs)
        .arg(attributes.join(QStringLiteral(", ")));
}

QString undoToastText(qint64 restored, qint64 failed, qint64 notReached)
{
    QStringList parts{translate("CleanUpText", "%Ln files put back", nullptr, restored)};
    if (failed > 0)
        parts.append(translate("CleanUpText", "%Ln failed", "files", failed));
    if (notReached > 0)
        parts.append(translate("CleanUpText", "%Ln not put back", "files", notReached));
    return parts.join(separator());
}

QString undoAlertText(const QList<SongFailure> &failures)
{
    constexpr qsizetype MOST_NAMES = 10;
    QStringList lines{
        translate("CleanUpText", "%Ln files could not be put back:", "a list follows", failures.size())};
    for (const SongFailure &failure : failures.first(std::min(failures.size(), MOST_NAMES)))
        lines.append(QStringLiteral("\u2022 %1: %2").arg(nameInText(failure.song.name), failure.reason));
    if (failures.size() > MOST_NAMES)
        lines.append(translate("CleanUpText", "and %Ln more", "the end of a list of files",
                               failures.size() - MOST_NAMES));
    return lines.join(u'\n');
}

QString timeLeftText(std::chrono::milliseconds elapsed, qint64 done, qint64 total)
{
    if (elapsed < 2s || done <= 0 || done >= total)
        return {};
    const double perFile = std::chrono::duration<double>(elapsed).count() / static_cast<double>(done);
    const double seconds = perFile * static_cast<double>(total - done);
    if (perFile * static_cast<double>(total) <= 5.0)
        return {};
    if (seconds < 10.0)
        return translate("CleanUpText", "A few seconds left");
    if (seconds < 55.0) {
        const qint64 tens = std::llround(std::ceil(seconds / 10.0) * 10.0);
        return translate("CleanUpText", "About %Ln seconds left", nullptr, tens);
    }
    if (seconds < 90.0 * 60.0) {
        const qint64 minutes = std::llround(std::max(1.0, seconds / 60.0));
        return translate("CleanUpText", "About %Ln minutes left", nullptr, minutes);
    }
    const qint64 hours = std::llround(seconds / 3600.0);
    return translate("CleanUpText", "About %Ln hours left", nullptr, hours);
}

} // namespace sonavo
