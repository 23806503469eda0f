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
#include <string>
#include <vector>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

struct Entry
{
    std::string name;
    bool isFolder;
};

/// A folder whose entries are being visited.
struct OpenFolder
{
    QString path;
    std::vector<Entry> entries;
    /// Index of the next entry.
    std::size_t next = 0;
};

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

OpenFolder openFolder(const QString &path, std::size_t maxEntries)
{
    OpenFolder folder{path, {}};
    std::error_code error;
    fs::directory_iterator entry(QFile::encodeName(path).toStdString(), error);
    for (; !error && entry != fs::directory_iterator() && folder.entries.size() < maxEntries;
         entry.increment(error)) {
        std::string name = entry->path().filename().native();
        if (name.starts_with('.') || !QUtf8StringView(name.data(), std::ssize(name)).isValidUtf8())
            continue;
        std::error_code unreadable;
        const bool isFolder = !entry->is_symlink(unreadable) && entry->is_directory(unreadable);
        folder.entries.push_back({std::move(name), isFolder});
    }
    std::sort(folder.entries.begin(), folder.entries.end(),
              [](const Entry &a, const Entry &b) { return a.name < b.name; });
    return folder;
}

QString pathInFolder(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

} // namespace

void enumerateFolder(const QString &folder, const EnumerationOptions &options,
                     const std::function<bool(const QString &path)> &visit)
{
    // An explicit stack: folders can be nested deeper than recursion could follow.
    std::vector<OpenFolder> stack;
    stack.push_back(openFolder(folder, options.maxEntriesPerFolder));
    while (!stack.empty()) {
        OpenFolder &current = stack.back();
        if (current.next == current.entries.size()) {
            stack.pop_back();
            continue;
        }
        const Entry &entry = current.entries[current.next++];
        const QString path = pathInFolder(current.path, decodedName(entry.name));
        if (!visit(path))
            return;
        if (entry.isFolder && (options.packages == EnumerationOptions::Packages::Enter || !isPackage(path)))
            stack.push_back(openFolder(path, options.maxEntriesPerFolder));
    }
}

} // namespace sonavo
