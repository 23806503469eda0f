#include "session/clean_up.h"

#include "actions/duplicates_folder.h"
#include "actions/file_identity.h"
#include "model/byte_count.h"

#include <algorithm>
#include <utility>

namespace sonavo {

using namespace std::chrono_literals;
using ToastType = Notices::ToastType;

CleanUp::CleanUp(Desktop &desktop, Library &library, Preview &preview, Notices &notices,
                 std::shared_ptr<Pauses> pauses, QObject *parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_library(library)
    , m_preview(preview)
    , m_notices(notices)
    , m_pauses(std::move(pauses))
{}

void CleanUp::moveDuplicatesToFolder()
{
    stopPreviewOfDuplicates();
    const QList<DuplicateGroup> groups = m_library.duplicateGroups();
    if (m_library.duplicateCount() == 0) {
        m_notices.showToast(QStringLiteral("No duplicates to move"), ToastType::Info);
        return;
    }

    const QPointer<CleanUp> self(this);
    const QString parent = m_desktop.chooseFolder(
        QStringLiteral("Select a folder to move duplicate files to"), QStringLiteral("Select Folder"));
    if (!self || parent.isEmpty() || !m_library.duplicateGroups().isSharedWith(groups))
        return;

    auto folder = DuplicatesFolder::create(parent, QDateTime::currentDateTime());
    if (const auto *failure = std::get_if<Failure>(&folder)) {
        m_notices.showToast(QStringLiteral("Failed to create folder: %1").arg(failure->reason),
                            ToastType::Error);
        return;
    }
    auto &target = std::get<DuplicatesFolder>(folder);
    finish(moveDuplicates(groups, target), QStringLiteral("Moved %1 files to folder"),
           QStringLiteral("Moved %1 files"));
    m_desktop.copyToClipboard(target.path());
    announceCopiedPath(&m_notices, m_pauses);
}

QCoro::Task<> CleanUp::announceCopiedPath(QPointer<Notices> notices, std::shared_ptr<Pauses> pauses)
{
    co_await pauses->wait(1s);
    if (notices)
        notices->showToast(QStringLiteral("Folder path copied to clipboard"), ToastType::Info);
}

void CleanUp::trashDuplicates()
{
    stopPreviewOfDuplicates();
    finish(sonavo::trashDuplicates(m_library.duplicateGroups()), QStringLiteral("Moved %1 files to Trash"),
           QStringLiteral("Moved %1 files to Trash"));
}

void CleanUp::stopPreviewOfDuplicates()
{
    const QList<Song> duplicates = duplicatesOf(m_library.duplicateGroups());
    if (std::ranges::any_of(duplicates, [this](const Song &song) { return m_preview.isOf(song); }))
        m_preview.stop();
}

void CleanUp::finish(const CleanUpOutcome &outcome, const QString &moved, const QString &partlyMoved)
{
    m_library.removeDuplicates();
    if (outcome.failures.isEmpty()) {
        m_notices.showToast(QStringLiteral("%1 \u2022 Saved %2")
                                .arg(moved.arg(outcome.moved.size()), formattedByteCount(outcome.savedBytes)),
                            ToastType::Success);
    } else {
        m_notices.showToast(QStringLiteral("%1 \u2022 %2 failed")
                                .arg(partlyMoved.arg(outcome.moved.size()))
                                .arg(outcome.failures.size()),
                            ToastType::Error);
    }
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a reference could be to a song that is removed here.
void CleanUp::deleteSong(Song song)
{
    if (m_preview.isOf(song)) {
        m_preview.mute();
        m_preview.stop();
    }
    if (isGone(song.path)) {
        m_library.removeSong(song.id);
        return;
    }
    const auto result = trashSong(song, m_library.duplicateGroups());
    if (const auto *failure = std::get_if<Failure>(&result)) {
        m_notices.showToast(QStringLiteral("Could not delete file: %1").arg(failure->reason),
                            ToastType::Error);
        return;
    }
    m_library.removeSong(song.id);
    m_notices.showToast(QStringLiteral("Moved to Trash: %1").arg(song.name), ToastType::Success);
    m_library.removeFromGroups(song.id);
}

} // namespace sonavo
