#include "app/command_line.h"

#include "language/language.h"
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

/// A text in the user's language. Nothing that translates is there before the application.
/// @param text of the context CommandLine
QString translated(const char *text)
{
    return systemLanguageText("CommandLine", text);
}

constexpr const char *HELP_TEXT = QT_TRANSLATE_NOOP(
    "CommandLine",
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
            warnings.append(
                translated(QT_TRANSLATE_NOOP("CommandLine", "skipped, its name is not valid UTF-8: %1"))
                    .arg(withVisibleControls(QString::fromUtf8(argument))));
        }
    }
    return texts;
}

QString parseError(const QCommandLineParser &parser)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (unknown.size() != 1)
        return parser.errorText();
    return translated(QT_TRANSLATE_NOOP("CommandLine", "Unknown option '%1'.")).arg(unknown.constFirst());
}

/// @return why the options that are set do not go together; empty if they do
QString optionConflict(const QCommandLineParser &parser)
{
    const bool isReport = parser.isSet(QStringLiteral("report"));
    for (const QString &option : {QStringLiteral("further"), QStringLiteral("json"), QStringLiteral("csv")}) {
        if (!isReport && parser.isSet(option))
            return translated(QT_TRANSLATE_NOOP("CommandLine", "--%1 needs --report")).arg(option);
    }
    if (isReport && parser.isSet(QStringLiteral("new-window")))
        return translated(QT_TRANSLATE_NOOP("CommandLine", "--report opens no window"));
    if (parser.isSet(QStringLiteral("json")) && parser.isSet(QStringLiteral("csv")))
        return translated(QT_TRANSLATE_NOOP("CommandLine", "--json and --csv exclude each other"));
    return {};
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
        return unusable(withVisibleControls(parseError(parser)));
    if (parser.isSet(help)) {
        commandLine.request = TextRequest{translated(HELP_TEXT)};
        return commandLine;
    }
    if (parser.isSet(version)) {
        commandLine.request = TextRequest{QStringLiteral("sonavo " SONAVO_VERSION "\n")};
        return commandLine;
    }
    if (const QString conflict = optionConflict(parser); !conflict.isEmpty())
        return unusable(conflict);

    QList<QUrl> items;
    for (const QString &path : parser.positionalArguments()) {
        if (!exists(path))
            return unusable(translated(QT_TRANSLATE_NOOP("CommandLine", "no such file or folder: %1"))
                                .arg(withVisibleControls(path)));
        items.append(fileUrlOf(path));
    }
    if (!parser.isSet(report)) {
        commandLine.request =
            WindowRequest{items, parser.isSet(newWindow) ? WindowChoice::New : WindowChoice::Shared};
    } else if (items.isEmpty()) {
        return unusable(translated(QT_TRANSLATE_NOOP("CommandLine", "--report needs at least one PATH")));
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
