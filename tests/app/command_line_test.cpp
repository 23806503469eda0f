#include "app/command_line.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <vector>

namespace sonavo {
namespace {

CommandLine parsed(std::vector<QByteArray> arguments)
{
    arguments.insert(arguments.begin(), "sonavo");
    std::vector<char *> pointers;
    for (QByteArray &argument : arguments)
        pointers.push_back(argument.data());
    return parseCommandLine(pointers);
}

TEST(CommandLine, MakesPathsAbsoluteAndKeepsLinks)
{
    const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/ %41#?\n-XXXXXX"));
    const QDir root(QFileInfo(folder.path()).canonicalFilePath());
    ASSERT_TRUE(root.mkpath(QStringLiteral("music/rock")));
    const auto path = [&root](const char *relative) { return root.filePath(QLatin1String(relative)); };
    ASSERT_TRUE(QFile(path("music/a.mp3")).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(path("music/rock"), path("link")));
    ASSERT_TRUE(QFile::link(path("nowhere"), path("broken.mp3")));
    const std::pair<QString, QString> cases[] = {
        {path("music/"), path("music")},
        {path("./music/../music//a.mp3"), path("music/a.mp3")},
        // Behind the link the folder above is "music".
        {path("link/../a.mp3"), path("music/a.mp3")},
        {path("link"), path("link")},
        {path("broken.mp3"), path("broken.mp3")},
        {QStringLiteral("/"), QStringLiteral("/")},
        {QDir::current().relativeFilePath(path("music/a.mp3")), path("music/a.mp3")},
    };
    for (const auto &[given, expected] : cases) {
        const QList<QUrl> items{QUrl::fromLocalFile(expected)};
        EXPECT_EQ(std::get<WindowRequest>(parsed({given.toUtf8()}).request).items, items);
        EXPECT_EQ(std::get<ReportRequest>(parsed({"--report", given.toUtf8()}).request).items, items);
    }
}

TEST(CommandLine, SkipsNamesThatAreNotUtf8)
{
    const CommandLine commandLine = parsed({"--report", "--json", "\xff.mp3", "/"});
    const auto &request = std::get<ReportRequest>(commandLine.request);
    EXPECT_EQ(request.items.size(), 1);
    EXPECT_EQ(request.format, ReportFormat::Json);
    EXPECT_EQ(commandLine.warnings.size(), 1);
}

} // namespace
} // namespace sonavo
