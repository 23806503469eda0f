#include "app/command_line.h"

#include "model/visible_controls.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

QString helpText()
{
    return QStringLiteral(
        "Usage: sonavo [--new-window] [PATH...]\n"
        "       sonavo --report [--further] [--json | --csv] PATH...\n"
        "\n"
        "Finds the songs that a music folder holds more than once and helps to remove them. Opens\n"
        "a window, in which the files and folders PATH... are scanned at once. If the window is\n"
        "open already, it comes to the front and scans them.\n"
        "\n"
        "  --new-window   open a window although there is one\n"
        "  --report       print the duplicate songs among PATH... instead, changing nothing\n"
        "  --further      compare every song with every other, in every script: finds more\n"
        "  --json         print them as JSON\n"
        "  --csv          print them as comma-separated values, for spreadsheets\n"
        "  -h, --help     print this text\n"
        "  -v, --version  print the version\n"
        "\n"
        "Exit status: 0 when the window was closed, the open one took over, or a report was\n"
        "printed, 1 when there was nothing to report, no window could be opened, or the open one\n"
        "is busy, 2 for unusable arguments, 130 after Ctrl-C during a report.\n");
}

std::optional<QString> decoded(const char *argument)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(argument));
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

/// Skips arguments that are not UTF-8, with a warning.
QStringList decodedArguments(std::span<char *const> arguments, QStringList &warnings)
{
    QStringList texts{QStringLiteral("sonavo")}; // for the parser, which skips the program's name
    for (const char *argument : arguments.subspan(std::min<std::size_t>(1, arguments.size()))) {
        if (const std::optional<QString> text = decoded(argument)) {
            texts.append(*text);
        } else {
            warnings.append(QStringLiteral("skipped, its name is not valid UTF-8: %1")
                                .arg(withVisibleControls(QString::fromUtf8(argument))));
        }
    }
    return texts;
}

bool exists(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// The absolute form of a path, without "." and "..". Symbolic links are kept, except before a "..", which
/// leads to the parent of the link's target.
QUrl fileUrlOf(const QString &path)
{
    std::error_code error;
    fs::path absolute = "/";
    for (const fs::path &part : fs::absolute(QFile::encodeName(path).toStdString(), error)) {
        if (part == "..")
            absolute = fs::canonical(absolute, error).parent_path();
        else if (!part.empty() && part != "." && part != "/")
            absolute /= part;
    }
    return QUrl::fromLocalFile(QFile::decodeName(absolute.c_str()));
}

} // namespace

CommandLine parseCommandLine(std::span<char *const> arguments)
{
    CommandLine commandLine;
    const QStringList texts = decodedArguments(arguments, commandLine.warnings);

    QCommandLineParser parser;
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
    const QCommandLineOption report(QStringLiteral("report"));
    const QCommandLineOption further(QStringLiteral("further"));
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption csv(QStringLiteral("csv"));
    const QCommandLineOption newWindow(QStringLiteral("new-window"));
    parser.addOptions({help, version, report, further, json, csv, newWindow});

    const auto unusable = [&commandLine](const QString &reason) {
        commandLine.request = UnusableArguments{reason};
        return commandLine;
    };
    if (!parser.parse(texts))
        return unusable(withVisibleControls(parser.errorText()));
    if (parser.isSet(help)) {
        commandLine.request = TextRequest{helpText()};
        return commandLine;
    }
    if (parser.isSet(version)) {
        commandLine.request = TextRequest{QStringLiteral("sonavo " SONAVO_VERSION "\n")};
        return commandLine;
    }
    const bool isReport = parser.isSet(report);
    for (const QCommandLineOption &option : {further, json, csv}) {
        if (!isReport && parser.isSet(option))
            return unusable(QStringLiteral("--%1 needs --report").arg(option.names().constFirst()));
    }
    if (isReport && parser.isSet(newWindow))
        return unusable(QStringLiteral("--report opens no window"));

    if (parser.isSet(json) && parser.isSet(csv))
        return unusable(QStringLiteral("--json and --csv exclude each other"));

    QList<QUrl> items;
    for (const QString &path : parser.positionalArguments()) {
        if (!exists(path))
            return unusable(QStringLiteral("no such file or folder: %1").arg(withVisibleControls(path)));
        items.append(fileUrlOf(path));
    }
    if (!isReport) {
        commandLine.request =
            WindowRequest{items, parser.isSet(newWindow) ? WindowChoice::New : WindowChoice::Shared};
    } else if (items.isEmpty()) {
        return unusable(QStringLiteral("--report needs at least one PATH"));
    } else {
        commandLine.request =
            ReportRequest{items,
                          parser.isSet(json)  ? ReportFormat::Json
                          : parser.isSet(csv) ? ReportFormat::Csv
                                              : ReportFormat::Text,
                          parser.isSet(further) ? SearchDepth::Further : SearchDepth::FourPasses};
    }
    return commandLine;
}

} // namespace sonavo
