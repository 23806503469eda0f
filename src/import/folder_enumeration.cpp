#include "import/folder_enumeration.h"

#include "model/audio_formats.h"
#include "model/file_name.h"

#include <QFile>
#include <QStringDecoder>

#include <system_error>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

/// Extensions of the packages that music collections contain: projects, libraries, plug-ins, applications.
bool isPackage(const QString &folder)
{
    static constexpr std::array<QStringView, 14> EXTENSIONS{
        u"app", u"aplibrary", u"band", u"bundle", u"component",     u"garageband", u"itlp",
        u"ite", u"logicx",    u"pkg",  u"vst",    u"photoslibrary", u"vst3",       u"musiclibrary",
    };
    const QStringView extension = pathExtension(folder);
    return std::any_of(EXTENSIONS.begin(), EXTENSIONS.end(), [extension](QStringView candidate) {
        return extension.compare(candidate, Qt::CaseInsensitive) == 0;
    });
}

/// A file name as text, with a byte order mark at its start if it has one.
QString decodedName(const std::string &name)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(name.data(), std::ssize(name)));
}

QString pathInFolder(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

} // namespace

FolderEntries readFolder(const QString &path, std::size_t maxEntries, ReadCounter *answers)
{
    FolderEntries folder{path, {}};
    std::error_code error;
    fs::directory_iterator entry(QFile::encodeName(path).toStdString(), error);
    for (; !error && entry != fs::directory_iterator() && folder.entries.size() < maxEntries;
         entry.increment(error)) {
        if (answers)
            ++*answers;
        std::string name = entry->path().filename().native();
        if (name.starts_with('.') || !QUtf8StringView(name.data(), std::ssize(name)).isValidUtf8())
            continue;
        std::error_code unreadable;
        const bool isFolder = !entry->is_symlink(unreadable) && entry->is_directory(unreadable);
        folder.entries.push_back({std::move(name), isFolder});
    }
    std::sort(folder.entries.begin(), folder.entries.end(),
              [](const FolderEntries::Entry &a, const FolderEntries::Entry &b) { return a.name < b.name; });
    return folder;
}

std::optional<FolderWalk::Step> FolderWalk::next()
{
    while (!m_folders.empty()) {
        OpenFolder &current = m_folders.back();
        if (current.next == current.folder.entries.size()) {
            m_folders.pop_back();
            continue;
        }
        const FolderEntries::Entry &entry = current.folder.entries[current.next++];
        QString path = pathInFolder(current.folder.path, decodedName(entry.name));
        const bool isEntered =
            entry.isFolder && (m_options.packages == EnumerationOptions::Packages::Enter || !isPackage(path));
        return Step{std::move(path), isEntered};
    }
    return std::nullopt;
}

void enumerateFolder(const QString &folder, const EnumerationOptions &options,
                     const std::function<bool(const QString &path)> &visit, ReadCounter *answers)
{
    FolderWalk walk(options);
    walk.enter(readFolder(folder, options.maxEntriesPerFolder, answers));
    for (std::optional<FolderWalk::Step> step = walk.next(); step && visit(step->path); step = walk.next()) {
        if (step->isEntered)
            walk.enter(readFolder(step->path, options.maxEntriesPerFolder, answers));
    }
}

} // namespace sonavo
