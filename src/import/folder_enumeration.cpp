#include "import/folder_enumeration.h"

#include "model/audio_formats.h"
#include "model/file_name.h"

#include <QFile>
#include <QStringDecoder>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <dirent.h>
#include <iterator>
#include <memory>
#include <string_view>

namespace sonavo {
namespace {

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

/// Not for a link to one.
bool isFolder(DIR *stream, const struct dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    // Some file systems do not tell.
    struct stat status = {};
    return ::fstatat(::dirfd(stream), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(status.st_mode);
}

QString pathInFolder(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

} // namespace

FolderEntries readFolder(const QString &path, std::size_t maxEntries, ReadCounter *answers)
{
    FolderEntries folder{path, {}};
    const std::unique_ptr<DIR, int (*)(DIR *)> stream(::opendir(QFile::encodeName(path).constData()),
                                                      ::closedir);
    while (stream && folder.entries.size() < maxEntries) {
        const struct dirent *const entry = ::readdir(stream.get());
        if (!entry)
            break;
        if (answers)
            ++*answers;
        const std::string_view name = entry->d_name;
        if (name.starts_with('.') || !QUtf8StringView(name.data(), std::ssize(name)).isValidUtf8())
            continue;
        folder.entries.push_back({std::string(name), isFolder(stream.get(), *entry)});
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
