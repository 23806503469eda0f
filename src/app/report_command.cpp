#include "app/report_command.h"

#include "actions/headless_desktop.h"
#include "app/interrupt.h"
#include "app/progress_line.h"
#include "app/report.h"
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

bool printReport(const DuplicateViewModel &session, ReportRequest::Format format)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return false;
    const bool isWritten =
        format == ReportRequest::Format::Json
            ? writeJsonReport(output, session.songs(), session.duplicateGroups(), session.colors().size())
            : writeTextReport(output, session.songs(), session.duplicateGroups());
    return isWritten && output.flush();
}

void complain(const QString &text)
{
    std::fprintf(stderr, "sonavo: %s\n", text.toUtf8().constData());
}

} // namespace

ExitStatus runReport(const ReportRequest &request)
{
    QSettings settings;
    const ThemeManager themeManager(settings);
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(),
                               groupColors(themeManager.currentTheme()));

    endAtOnceOnInterrupt();
    {
        ProgressLine progressLine;
        QObject shown;
        const auto showProgress = [&] { progressLine.show(session.scanMessage(), session.progress()); };
        QObject::connect(&session, &DuplicateViewModel::progressChanged, &shown, showProgress);
        QObject::connect(&session, &DuplicateViewModel::scanMessageChanged, &shown, showProgress);

        QEventLoop loop;
        // Queued, because the scan publishes more after it is no longer scanning.
        QObject::connect(&session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit,
                         Qt::QueuedConnection);
        session.startScan(request.items);
        while (session.isScanning())
            loop.exec();
    }

    if (session.showAlert()) {
        complain(session.alertMessage());
        return ExitStatus::NothingReported;
    }
    if (!printReport(session, request.format)) {
        complain(QStringLiteral("the report could not be written"));
        return ExitStatus::NothingReported;
    }
    return ExitStatus::Success;
}

} // namespace sonavo
