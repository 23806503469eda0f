#include "session/review.h"

#include "model/translate.h"
#include "model/visible_controls.h"
#include "session/clean_up_text.h"

#include <QPointer>

#include <utility>

namespace sonavo {

using ToastType = Notices::ToastType;

namespace {

QString changingMessage()
{
    return translate("Review", "Changing the groups...");
}

QString originalsText(qint64 groups)
{
    return groups == 0 ? translate("Review", "No original has changed")
                       : translate("Review", "Changed the original in %Ln groups", nullptr, groups);
}

} // namespace

Review::Review(const Session &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
{}

void Review::findMore()
{
    if (m_session.library.songs().isEmpty() || m_session.library.lists().depth == SearchDepth::Further)
        return;
    take({.name = translate("Review", "Find More Duplicates"), .depth = SearchDepth::Further},
         translate("Review", "Comparing every song with every other..."), moreFoundText);
}

void Review::returnToFirstResult()
{
    if (m_session.library.lists().depth == SearchDepth::FourPasses)
        return;
    take({.name = translate("Review", "Return to First Result"), .depth = SearchDepth::FourPasses},
         changingMessage(), [](qint64) { return translate("Review", "Returned to the first result"); });
}

void Review::keepSong(const Song &song)
{
    take({.name = translate("Review", "Keep This One"), .kept = KeptSong{song.id}}, changingMessage(),
         originalsText);
}

void Review::keepCopiesIn(const QString &path)
{
    take({.name = translate("Review", "Keep Copies in This Folder"), .kept = KeptFolder{path}},
         changingMessage(), originalsText);
}

void Review::keepLosslessCopies()
{
    take({.name = translate("Review", "Keep Lossless Copies"), .kept = KeptLossless()}, changingMessage(),
         originalsText);
}

void Review::excludeFromDuplicates(const Song &song)
{
    take({.name = translate("Review", "Not a Duplicate"),
          .removal = {.songs = {}, .members = {song.id}, .cleanedUp = {song.id}}},
         changingMessage(), [name = nameInText(song.name)](qint64 songs) {
             return songs == 0 ? translate("Review", "No group has changed")
                               : translate("Review", "Not a duplicate: %1").arg(name);
         });
}

void Review::take(UndoStep step, const QString &message, const ToastText &toast)
{
    if (m_session.job.state().isRunning || m_session.scan.state().isRunning)
        return;
    const WorkBasis basis = basisOf(m_session.library);
    step.scan = basis.scan.id;
    m_session.job.run<std::optional<Reviewed>>(
        message, FURTHER_PARTS,
        [basis, step](const FileJob::Control &control) { return reviewed(basis, step, control); },
        [self = QPointer<Review>(this), step, toast](const std::optional<Reviewed> &result) {
            if (self && result && self->isShown(step.scan))
                self->publish(step, *result, toast);
        });
}

void Review::publish(const UndoStep &step, const Reviewed &result, const ToastText &toast)
{
    const QPointer<Review> self(this);
    Library &library = m_session.library;
    if (result.furtherGroups)
        library.setFurtherGroups(*result.furtherGroups);
    if (result.isTaken) {
        library.setNotes(result.notes);
        library.setHistory(result.history);
        if (self && isShown(step.scan))
            library.show(result.lists);
        const auto &played = self ? m_session.preview.state().song : std::nullopt;
        if (played && !result.withRow.contains(played->id))
            m_session.preview.stop();
    }
    if (!self)
        return;
    if (result.isTaken)
        m_session.notices.showToast(toast(result.count), ToastType::Success, undoText());
    else
        m_session.notices.showToast(toast(result.count), ToastType::Info);
}

} // namespace sonavo
