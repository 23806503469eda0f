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

class CommandLineTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const QDir root(m_folder.path());
        ASSERT_TRUE(root.mkpath(QStringLiteral("music/rock")));
        ASSERT_TRUE(QFile(path("music/a.mp3")).open(QIODevice::WriteOnly));
        ASSERT_TRUE(QFile::link(path("music/rock"), path("link")));
        ASSERT_TRUE(QFile::link(path("music"), path("folder")));
        ASSERT_TRUE(QFile::link(path("nowhere"), path("broken.mp3")));
    }

    [[nodiscard]] QString path(const char *relative) const
    {
        return QDir(QFileInfo(m_folder.path()).canonicalFilePath()).filePath(QLatin1String(relative));
    }

    QTemporaryDir m_folder{QDir::tempPath() + QStringLiteral("/ %41#?\n-XXXXXX")};
};

TEST_F(CommandLineTest, MakesPathsAbsoluteAndKeepsLinks)
{
    const std::pair<QString, QString> cases[] = {
        {path("music/"), path("music")},
        {path("music/."), path("music")},
        {path("./music/../music//a.mp3"), path("music/a.mp3")},
        // Behind the link the folder above is "music".
        {path("link/../a.mp3"), path("music/a.mp3")},
        {path("link"), path("link")},
        {path("folder/a.mp3"), path("folder/a.mp3")},
        {path("music/rock/.."), path("music")},
        {path("broken.mp3"), path("broken.mp3")},
        {QStringLiteral("/"), QStringLiteral("/")},
        {QDir::current().relativeFilePath(path("music/a.mp3")), path("music/a.mp3")},
    };
    for (const auto &[given, expected] : cases) {
        const CommandLine commandLine = parsed({"--report", given.toUtf8()});
        const auto *request = std::get_if<ReportRequest>(&commandLine.request);
        ASSERT_NE(request, nullptr) << given.toStdString();
        ASSERT_EQ(request->items.size(), 1);
        EXPECT_EQ(request->items[0].toLocalFile(), expected) << given.toStdString();
    }
}

TEST_F(CommandLineTest, OpensTheWindowUnlessAReportIsWanted)
{
    EXPECT_TRUE(std::get<WindowRequest>(parsed({}).request).items.isEmpty());
    const CommandLine commandLine = parsed({path("music").toUtf8(), path("broken.mp3").toUtf8()});
    EXPECT_EQ(std::get<WindowRequest>(commandLine.request).items,
              (QList{QUrl::fromLocalFile(path("music")), QUrl::fromLocalFile(path("broken.mp3"))}));
}

TEST_F(CommandLineTest, PassesOverNamesThatAreNotUtf8)
{
    const CommandLine commandLine = parsed({"--report", "--json", "\xff.mp3", path("music").toUtf8()});
    const auto *request = std::get_if<ReportRequest>(&commandLine.request);
    ASSERT_NE(request, nullptr);
    EXPECT_EQ(request->items.size(), 1);
    EXPECT_EQ(request->format, ReportFormat::Json);
    EXPECT_EQ(commandLine.warnings.size(), 1);
}

} // namespace
} // namespace sonavo
