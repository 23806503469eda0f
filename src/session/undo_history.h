#pragma once

#include "actions/clean_up.h"
#include "session/clean_up_summary.h"
#include "session/scan_result.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <memory>
#include <optional>
#include <variant>

namespace sonavo {

/// What is not shown any more of the result of a scan.
struct Removal
{
    /// Ids that are missing from the songs.
    QSet<QUuid> songs;
    /// Ids that are missing from the groups; a song without a file can be in its group still.
    QSet<QUuid> members;
    /// Ids whose group is dropped as soon, and as long, as only one song is left of it.
    QSet<QUuid> cleanedUp;
};

// Which song of a group the user wants to keep. It becomes the original.

/// This one.
struct KeptSong
{
    QUuid id;
};
/// The largest of those in this folder or below it.
struct KeptFolder
{
    QString path;
};
/// The largest of those that lose nothing; see LosslessSongs.
struct KeptLossless
{};
using KeptCopies = std::variant<KeptSong, KeptFolder, KeptLossless>;

/// A step of the session that can be undone. It moves files, decides which copies are kept, or shows the
/// result of another way of looking.
struct UndoStep
{
    /// What was done, as in "Undo Move to Trash".
    QString name = {};
    /// The scan whose result it has changed; see ScanResult::id.
    quint64 scan = 0;
    Removal removal = {};
    /// What was moved and has not been put back, in the order in which it was moved.
    QList<DisposedSong> files = {};
    /// For a clean-up of groups: the summary before it, which can be null.
    std::optional<std::shared_ptr<const CleanUpSummary>> summaryBefore = {};
    std::optional<KeptCopies> kept = {};
    std::optional<SearchDepth> depth = {};
};

/// Text of a button that undoes the last step: "Undo".
[[nodiscard]] QString undoText();

/// The steps that can be undone, the last first. A plain value whose copies share the steps.
///
/// What is shown is the result of the scan, or of looking further, without the removals of all steps and with
/// the originals that they chose. So steps can be undone in any order: each leaves the lists as if it had
/// never been, except for files that are still away. And both results follow every step, whichever was shown
/// when it was taken.
class UndoHistory
{
public:
    /// The step that is undone next; null when there is none.
    [[nodiscard]] std::shared_ptr<const UndoStep> next() const;
    /// As "Undo Move to Trash"; empty when there is nothing to undo.
    [[nodiscard]] QString nextText() const;

    void add(UndoStep step);
    /// A change of the lists that cannot be undone.
    void addRemoval(quint64 scan, const Removal &removal);

    /// Replaces the next step, whose files were to be put back, by what is left of it; one that has moved no
    /// files is dropped. A step of which nothing could be put back goes below all others, so that it does not
    /// block them.
    /// @param scan the latest
    void undone(const UndoOutcome &outcome, quint64 scan);

    /// Without the steps of other scans that have moved no files: they mean nothing among other songs.
    [[nodiscard]] UndoHistory keptFor(quint64 scan) const;

    /// What is left of the result of a scan after all steps.
    [[nodiscard]] SongLists applyTo(const ScanResult &scan) const;

private:
    [[nodiscard]] Removal removalFrom(quint64 scan) const;
    [[nodiscard]] SearchDepth depthOf(quint64 scan) const;
    /// @param groups found by that scan, or by looking further among its songs
    [[nodiscard]] QList<DuplicateGroup> applyTo(const QList<DuplicateGroup> &groups,
                                                const ScanResult &scan) const;

    /// The last one is the next.
    QList<std::shared_ptr<const UndoStep>> m_steps;
    /// Of the latest scan, by what cannot be undone.
    quint64 m_scan = 0;
    Removal m_removal;
};

} // namespace sonavo
