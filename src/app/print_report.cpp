#include "app/print_report.h"

#include "actions/headless_desktop.h"
#include "analysis/find_further.h"
#include "app/progress_line.h"
#include "report/report_writers.h"
#include "session/duplicate_view_model.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/stored_settings.h"
#include "theme/theme_manager.h"

#include <QEventLoop>
#include <QFile>
#include <QObject>

#include <cstdio>

namespace sonavo {
namespace {

struct Findings
{
    QList<DuplicateGroup> groups;
    OnlyFurther onlyFurther;
};

Findings lookFurther(const DuplicateViewModel &session, ProgressLine &progressLine)
{
    const QString message = QStringLiteral("Comparing every song with every other...");
    const auto showProgress = [&](double fraction) { progressLine.show(message, fraction); };
    const auto groups = findFurther(session.songs(), {}, showProgress).value_or(QList<DuplicateGroup>());
    return {groups, foundOnlyFurther(groups, session.duplicateGroups())};
}

bool writeReport(const QList<Song> &songs, const Findings &findings, ReportFormat format)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return false;
    if (format == ReportFormat::Csv)
        return writeCsvReport(output, findings.groups) && output.flush();
    const auto write = format == ReportFormat::Json ? writeJsonReport : writeTextReport;
    return write(output, songs, findings.groups, findings.onlyFurther) && output.flush();
}

void printError(const QString &text)
{
    std::fprintf(stderr, "sonavo: %s\n", text.toUtf8().constData());
}

} // namespace

bool printReport(const QList<QUrl> &items, ReportFormat format, SearchDepth depth)
{
    QObject owner;
    const ThemeManager themeManager(openStoredSettings(&owner));
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(),
                               groupColors(themeManager.currentTheme()));

    Findings findings;
    {
        ProgressLine progressLine;
        QObject context;
        const auto showProgress = [&] { progressLine.show(session.scanMessage(), session.progress()); };
        QObject::connect(&session, &DuplicateViewModel::progressChanged, &context, showProgress);

        QEventLoop loop;
        // Queued, because the scan publishes more after it is no longer scanning.
        QObject::connect(&session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit,
                         Qt::QueuedConnection);
        session.startScan(items);
        while (session.isScanning())
            loop.exec();
        findings = depth == SearchDepth::Further ? lookFurther(session, progressLine)
                                                 : Findings{session.duplicateGroups(), std::nullopt};
    }

    if (session.showAlert()) {
        printError(session.alertMessage());
        return false;
    }
    if (!writeReport(session.songs(), findings, format)) {
        printError(QStringLiteral("the report could not be written"));
        return false;
    }
    return true;
}

} // namespace sonavo
