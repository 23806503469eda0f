#include "app/command_line.h"

#include "app/terminal_text.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <filesystem>
#include <optional>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

std::optional<QString> decoded(const char *argument)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(argument));
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

bool exists(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// The absolute form of a path, without "." and ".."; a link in its last place stays a link.
QUrl fileUrlOf(const QString &path)
{
    std::error_code error;
    fs::path absolute = fs::absolute(QFile::encodeName(path).toStdString(), error);
    if (!absolute.has_filename())
        absolute = absolute.parent_path();
    // Only the file system knows where ".." leads when there are links on the way.
    if (absolute.filename() == "..")
        absolute = fs::canonical(absolute, error);
    else if (const fs::path folder = fs::canonical(absolute.parent_path(), error);
             !error && folder != absolute)
        absolute = absolute.filename() == "." ? folder : folder / absolute.filename();
    return QUrl::fromLocalFile(QFile::decodeName(absolute.c_str()));
}

} // namespace

CommandLine parseCommandLine(std::span<char *const> arguments)
{
    CommandLine commandLine;
    QStringList texts;
    for (const char *argument : arguments) {
        if (const std::optional<QString> text = decoded(argument)) {
            texts.append(*text);
        } else {
            commandLine.warnings.append(QStringLiteral("skipped, its name is not valid UTF-8: %1")
                                            .arg(escapedForTerminal(QString::fromUtf8(argument))));
        }
    }

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Finds the songs that a music folder holds more than once.\n\n"
                       "Exit status: 0 when a report was printed, 1 when nothing could be scanned,\n"
                       "2 for unusable arguments, 130 after Ctrl-C."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption report(QStringLiteral("report"),
                                    QStringLiteral("Print the duplicate songs in PATHs on the terminal."));
    const QCommandLineOption json(QStringLiteral("json"), QStringLiteral("Print the report as JSON."));
    parser.addOptions({report, json});
    parser.addPositionalArgument(QStringLiteral("PATH"), QStringLiteral("Audio files and folders."),
                                 QStringLiteral("PATH..."));

    const auto unusable = [&commandLine](const QString &reason) {
        commandLine.request = UnusableArguments{reason};
        return commandLine;
    };
    if (!parser.parse(texts))
        return unusable(parser.errorText());
    if (parser.isSet(help)) {
        commandLine.request = HelpRequest{parser.helpText()};
        return commandLine;
    }
    if (parser.isSet(version)) {
        commandLine.request = HelpRequest{QStringLiteral("Sonavo " SONAVO_VERSION "\n")};
        return commandLine;
    }
    if (!parser.isSet(report))
        return unusable(QStringLiteral("--report is missing"));

    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty())
        return unusable(QStringLiteral("--report needs at least one PATH"));
    ReportRequest request;
    request.format = parser.isSet(json) ? ReportRequest::Format::Json : ReportRequest::Format::Text;
    for (const QString &path : paths) {
        if (!exists(path))
            return unusable(QStringLiteral("no such file or folder: %1").arg(escapedForTerminal(path)));
        request.items.append(fileUrlOf(path));
    }
    commandLine.request = request;
    return commandLine;
}

} // namespace sonavo
