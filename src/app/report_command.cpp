#include "app/report_command.h"

#include "app/headless_desktop.h"
#include "app/interrupt_signal.h"
#include "app/palette.h"
#include "app/progress_line.h"
#include "app/report.h"
#include "app/theme_manager.h"
#include "session/duplicate_view_model.h"
#include "session/event_loop_pauses.h"

#include <QEventLoop>
#include <QFile>
#include <QSettings>

#include <cstdio>
#include <optional>

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

    bool isInterrupted = false;
    {
        ProgressLine progressLine;
        const auto showProgress = [&] { progressLine.show(session.scanMessage(), session.progress()); };
        QObject::connect(&session, &DuplicateViewModel::progressChanged, &session, showProgress);
        QObject::connect(&session, &DuplicateViewModel::scanMessageChanged, &session, showProgress);

        QEventLoop loop;
        const InterruptSignal interrupt;
        QObject::connect(&interrupt, &InterruptSignal::interrupted, &loop, [&] {
            isInterrupted = true;
            session.clearAll();
        });
        // Queued, because the scan publishes more after it is no longer scanning.
        QObject::connect(&session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit,
                         Qt::QueuedConnection);
        session.startScan(request.items);
        while (session.isScanning())
            loop.exec();
        QObject::disconnect(&session, nullptr, &session, nullptr);
    }

    if (isInterrupted)
        return ExitStatus::Interrupted;
    if (session.showAlert()) {
        complain(session.alertMessage());
        return ExitStatus::NothingScanned;
    }
    if (!printReport(session, request.format)) {
        complain(QStringLiteral("the report could not be written"));
        return ExitStatus::NothingScanned;
    }
    return ExitStatus::Success;
}

} // namespace sonavo
