#include "session/clean_up_text.h"

#include "model/byte_count.h"
#include "model/visible_controls.h"

#include <QLocale>
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

QString groupedNumber(qint64 number)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

QString counted(qint64 number, const QString &noun)
{
    return groupedNumber(number) + u' ' + noun + (number == 1 ? QString() : QStringLiteral("s"));
}

QString moreFoundText(qint64 duplicates)
{
    const QString found = duplicates == 0 ? QStringLiteral("No more duplicates")
                                          : counted(duplicates, QStringLiteral("more duplicate"));
    return found + QStringLiteral(" found");
}

QString descriptionOf(const DuplicateTotals &duplicates, CleanUpTarget target)
{
    if (duplicates.count == 0)
        return QStringLiteral("No duplicates to move");
    return QStringLiteral("Move %1 (%2) to %3")
        .arg(counted(duplicates.count, QStringLiteral("duplicate")), formattedByteCount(duplicates.bytes),
             target == CleanUpTarget::Trash ? QStringLiteral("the Trash") : QStringLiteral("a folder"));
}

QString toastText(const CleanUpSummary &summary)
{
    // The folder is named only when nothing has failed.
    const QString target = summary.target == CleanUpTarget::Trash ? QStringLiteral(" to Trash")
                           : summary.failures.isEmpty()           ? QStringLiteral(" to folder")
                                                                  : QString();
    QStringList parts{QStringLiteral("Moved %1 files").arg(summary.moved) + target};
    if (!summary.failures.isEmpty())
        parts.append(QStringLiteral("%1 failed").arg(summary.failures.size()));
    if (summary.notReached > 0)
        parts.append(QStringLiteral("%1 not moved").arg(summary.notReached));
    if (parts.size() == 1)
        parts.append(QStringLiteral("Saved %1").arg(formattedByteCount(summary.saved)));
    return parts.join(separator());
}

QString headlineOf(const CleanUpSummary &summary)
{
    if (summary.moved == 0)
        return QStringLiteral("No files were moved");
    return QStringLiteral("%1 moved to %2")
               .arg(counted(summary.moved, QStringLiteral("file")), summary.target == CleanUpTarget::Trash
                                                                        ? QStringLiteral("the Trash")
                                                                        : QStringLiteral("a folder")) +
           separator() + formattedByteCount(summary.saved);
}

QString remainingText(qint64 songs)
{
    return counted(songs, QStringLiteral("song")) +
           (songs == 1 ? QStringLiteral(" remains") : QStringLiteral(" remain"));
}

QString lossesText(const QStringList &attributes, qint64 songs)
{
    if (attributes.isEmpty())
        return {};
    return QStringLiteral("The new disk could not store all attributes of %1: %2")
        .arg(counted(songs, QStringLiteral("song")), attributes.join(QStringLiteral(", ")));
}

QString undoToastText(qint64 restored, qint64 failed, qint64 notReached)
{
    QStringList parts{counted(restored, QStringLiteral("file")) + QStringLiteral(" put back")};
    if (failed > 0)
        parts.append(QStringLiteral("%1 failed").arg(groupedNumber(failed)));
    if (notReached > 0)
        parts.append(QStringLiteral("%1 not put back").arg(groupedNumber(notReached)));
    return parts.join(separator());
}

QString undoAlertText(const QList<SongFailure> &failures)
{
    constexpr qsizetype MOST_NAMES = 10;
    QStringList lines{counted(failures.size(), QStringLiteral("file")) +
                      QStringLiteral(" could not be put back:")};
    for (const SongFailure &failure : failures.first(std::min(failures.size(), MOST_NAMES)))
        lines.append(QStringLiteral("\u2022 %1: %2")
                         .arg(withVisibleControls(failure.song.name), withVisibleControls(failure.reason)));
    if (failures.size() > MOST_NAMES)
        lines.append(QStringLiteral("and %1 more").arg(groupedNumber(failures.size() - MOST_NAMES)));
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
    const auto about = [](double amount, const QString &unit) {
        return QStringLiteral("About %1 left").arg(counted(std::llround(amount), unit));
    };
    if (seconds < 10.0)
        return QStringLiteral("A few seconds left");
    if (seconds < 55.0)
        return about(std::ceil(seconds / 10.0) * 10.0, QStringLiteral("second"));
    if (seconds < 90.0 * 60.0)
        return about(std::max(1.0, seconds / 60.0), QStringLiteral("minute"));
    return about(seconds / 3600.0, QStringLiteral("hour"));
}

} // namespace sonavo
