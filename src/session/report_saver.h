#pragma once

#include "actions/desktop.h"
#include "session/file_job.h"
#include "session/library.h"
#include "session/notices.h"

#include <QObject>
#include <QString>

namespace sonavo {

/// Saves the groups that the session shows as a report, for other programs or a spreadsheet. Main thread
/// only.
class ReportSaver : public QObject
{
public:
    /// All must outlive it.
    ReportSaver(Desktop &desktop, const Library &library, Notices &notices, FileJob &job,
                QObject *parent = nullptr);

    /// Lets the user choose a file and writes the groups into it, with the originals that the user has
    /// chosen: as JSON where its name ends in ".json", otherwise as comma-separated values. A job writes it.
    /// A file of this name is replaced only when the report is complete; a toast says so, or why it was not
    /// saved. Does nothing without songs or while a job is running.
    void save();

    /// Path of the last report; empty without one.
    [[nodiscard]] const QString &savedPath() const { return m_savedPath; }

private:
    struct Outcome
    {
        /// Why it was not saved; empty when it was.
        QString failure;
    };

    [[nodiscard]] static Outcome write(const QString &path, const SongLists &lists,
                                       const FileJob::Control &control);
    void publish(const QString &path, const Outcome &outcome);

    Desktop &m_desktop;
    const Library &m_library;
    Notices &m_notices;
    FileJob &m_job;
    QString m_savedPath;
};

} // namespace sonavo
