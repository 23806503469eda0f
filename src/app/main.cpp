#include "app/command_line.h"
#include "app/print_report.h"
#include "app/process_exit.h"
#include "app/run_window.h"
#include "app/utf8_locale.h"
#include "language/language.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <malloc.h>
#include <variant>

namespace {

template <typename... Handlers>
struct Overloaded : Handlers...
{
    using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

void print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toUtf8().constData(), stream);
}

} // namespace

int main(int argc, char *argv[])
{
    using namespace sonavo;

    // The default of glibc, but fixed: when it grows, large blocks that are freed stay with the process.
    constexpr int LARGE_BLOCK = 128 * 1024;
    ::mallopt(M_MMAP_THRESHOLD, LARGE_BLOCK);
    useUtf8Locale();
    QCoreApplication::setApplicationName(QStringLiteral("sonavo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SONAVO_VERSION));
    QCoreApplication::setOrganizationName(QStringLiteral("sonavo"));

    const CommandLine commandLine = parseCommandLine({argv, static_cast<std::size_t>(argc)});
    for (const QString &warning : commandLine.warnings)
        print(stderr, QStringLiteral("sonavo: %1\n").arg(warning));
    const ExitStatus exitStatus = std::visit(
        Overloaded{
            [&](const WindowRequest &request) { return runWindow(argc, argv, request); },
            [&](const ReportRequest &request) {
                const QCoreApplication application(argc, argv);
                useEnglish(); // as scripts that read reports expect
                exitAtOnceOnInterrupt();
                const ExitStatus status = printReport(request.items, request.format, request.depth)
                                              ? ExitStatus::Success
                                              : ExitStatus::NothingReported;
                forceExitAfter(std::chrono::seconds(5), status);
                return status;
            },
            [](const TextRequest &request) {
                print(stdout, request.text);
                return ExitStatus::Success;
            },
            [](const UnusableArguments &arguments) {
                print(stderr,
                      QStringLiteral("sonavo: %1\n%2\n")
                          .arg(arguments.text,
                               systemLanguageText("CommandLine",
                                                  QT_TRANSLATE_NOOP("CommandLine", "Try 'sonavo --help'."))));
                return ExitStatus::UnusableArguments;
            },
        },
        commandLine.request);
    return static_cast<int>(exitStatus);
}
