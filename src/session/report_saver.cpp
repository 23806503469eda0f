#include "session/report_saver.h"

#include "model/translate.h"
#include "model/visible_controls.h"
#include "report/report_writers.h"

#include <QFileInfo>
#include <QPointer>
#include <QSaveFile>
#include <QSet>

#include <stop_token>
#include <utility>

namespace sonavo {
namespace {

/// Cannot be written any more as soon as the user stops the job. To be opened unbuffered: QSaveFile commits a
/// file whose buffer could not be written in full.
class StoppableFile final : public QSaveFile
{
public:
    StoppableFile(const QString &path, std::stop_token stop)
        : QSaveFile(path)
        , m_stop(std::move(stop))
    {}

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        if (m_stop.stop_requested())
            cancelWriting();
        // A full disk takes a part, and says only then that it is full.
        qint64 written = 0;
        while (written < size) {
            const qint64 part = QSaveFile::writeData(data + written, size - written);
            if (part <= 0)
                return -1;
            written += part;
        }
        return written;
    }

private:
    const std::stop_token m_stop;
};

/// Groups that are left with their original alone are not shown.
QList<DuplicateGroup> shownGroups(QList<DuplicateGroup> groups)
{
    groups.removeIf([](const DuplicateGroup &group) { return group.duplicates.isEmpty(); });
    return groups;
}

/// The songs, and the members of groups whose files turned out to be gone.
QList<Song> withMissingMembers(QList<Song> songs, const QList<DuplicateGroup> &groups)
{
    QSet<QUuid> ids;
    ids.reserve(songs.size());
    for (const Song &song : std::as_const(songs))
        ids.insert(song.id);
    for (const DuplicateGroup &group : groups) {
        for (const Song &member : membersOf(group)) {
            if (!ids.contains(member.id))
                songs.append(member);
        }
    }
    return songs;
}

} // namespace

ReportSaver::ReportSaver(Desktop &desktop, const Library &library, Notices &notices, FileJob &job,
                         QObject *parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_library(library)
    , m_notices(notices)
    , m_job(job)
{}

void ReportSaver::save()
{
    if (m_job.state().isRunning || m_library.songs().isEmpty())
        return;
    // What was shown when the user asked for it.
    const SongLists lists = m_library.lists();
    const QPointer<ReportSaver> self(this);
    const QString path = m_desktop.chooseReportFile(QStringLiteral("Duplicate songs"));
    if (!self || path.isEmpty() || m_job.state().isRunning)
        return;
    m_job.run<Outcome>(
        translate("ReportSaver", "Saving the report..."), 1,
        [path, lists](const FileJob::Control &control) { return write(path, lists, control); },
        [self, path](const Outcome &outcome) {
            if (self)
                self->publish(path, outcome);
        });
}

ReportSaver::Outcome ReportSaver::write(const QString &path, const SongLists &lists,
                                        const FileJob::Control &control)
{
    StoppableFile file(path, control.stop);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return {file.errorString()};
    const QList<DuplicateGroup> groups = shownGroups(lists.groups);
    const OnlyFurther onlyFurther =
        lists.depth == SearchDepth::Further ? OnlyFurther(lists.onlyFurther) : std::nullopt;
    const bool isJson = path.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive);
    const bool isWritten =
        isJson ? writeJsonReport(file, withMissingMembers(lists.songs, groups), groups, onlyFurther)
               : writeCsvReport(file, groups);
    return isWritten && file.commit() ? Outcome() : Outcome{file.errorString()};
}

void ReportSaver::publish(const QString &path, const Outcome &outcome)
{
    using ToastType = Notices::ToastType;
    if (outcome.failure.isEmpty()) {
        m_savedPath = path;
        const QString name = nameInText(QFileInfo(path).fileName());
        m_notices.showToast(translate("ReportSaver", "Report saved: %1").arg(name), ToastType::Success,
                            translate("ReportSaver", "Show in Folder"), Notices::ToastAction::ShowReport);
    } else if (m_job.state().isStopping) {
        m_notices.showToast(translate("ReportSaver", "The report was not saved"), ToastType::Info);
    } else {
        m_notices.showToast(
            translate("ReportSaver", "The report could not be saved: %1").arg(outcome.failure),
            ToastType::Error);
    }
}

} // namespace sonavo
