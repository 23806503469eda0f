#include "report/print_report.h"

#include "actions/headless_desktop.h"
#include "report/progress_line.h"
#include "report/report_writers.h"
#include "session/duplicate_view_model.h"
#include "session/event_loop_pauses.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QEventLoop>
#include <QFile>
#include <QObject>
#include <QSettings>

#include <cstdio>

namespace sonavo {
namespace {

bool writeReport(const DuplicateViewModel &session, ReportFormat format)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return false;
    const bool isWritten = format == ReportFormat::Json
                               ? writeJsonReport(output, session.songs(), session.duplicateGroups())
                               : writeTextReport(output, session.songs(), session.duplicateGroups());
    return isWritten && output.flush();
}

void printError(const QString &text)
{
    std::fprintf(stderr, "sonavo: %s\n", text.toUtf8().constData());
}

} // namespace

bool printReport(const QList<QUrl> &items, ReportFormat format)
{
    QSettings settings;
    const ThemeManager themeManager(settings);
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(),
                               groupColors(themeManager.currentTheme()));

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
    }

    if (session.showAlert()) {
        printError(session.alertMessage());
        return false;
    }
    if (!writeReport(session, format)) {
        printError(QStringLiteral("the report could not be written"));
        return false;
    }
    return true;
}

} // namespace sonavo
