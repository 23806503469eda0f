#include "import/folder_enumeration.h"

#include "model/audio_formats.h"
#include "model/file_name.h"

#include <QFile>
#include <QStringDecoder>

#include <system_error>

#include <algorithm>
#include <array>
#include <filesystem>
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

/// What is left to visit of one folder.
struct Listing
{
    QString folder;
    std::vector<Entry> entries;
    std::size_t next = 0;
};

/// Folders that desktops show as one document and that turn up in music collections: music projects and
/// libraries, plug-ins, and applications beside them.
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

/// The text of a file name, or a null text when its bytes are not valid UTF-8: no text could name that file.
QString decodedName(const std::string &name)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(name.data(), static_cast<qsizetype>(name.size())));
    return decoder.hasError() ? QString() : text;
}

Listing listingOf(const QString &folder, std::size_t maxEntries)
{
    Listing listing{folder, {}};
    std::error_code error;
    fs::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != fs::directory_iterator() && listing.entries.size() < maxEntries;
         entry.increment(error)) {
        std::string name = entry->path().filename().native();
        if (name.starts_with('.'))
            continue;
        std::error_code unreadable;
        const bool isFolder = !entry->is_symlink(unreadable) && entry->is_directory(unreadable);
        listing.entries.push_back({std::move(name), isFolder});
    }
    std::sort(listing.entries.begin(), listing.entries.end(),
              [](const Entry &a, const Entry &b) { return a.name < b.name; });
    return listing;
}

QString pathInFolder(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

} // namespace

void enumerateFolder(const QString &folder, const FolderEnumeration &options,
                     const std::function<bool(const QString &path)> &visit)
{
    // A stack of its own: the depth of a folder tree is not ours to trust.
    std::vector<Listing> stack;
    stack.push_back(listingOf(folder, options.entriesPerFolder));
    while (!stack.empty()) {
        Listing &listing = stack.back();
        if (listing.next == listing.entries.size()) {
            stack.pop_back();
            continue;
        }
        const Entry &entry = listing.entries[listing.next++];
        const QString name = decodedName(entry.name);
        if (name.isNull())
            continue;
        const QString path = pathInFolder(listing.folder, name);
        if (!visit(path))
            return;
        if (entry.isFolder && (options.packages == FolderEnumeration::Packages::Enter || !isPackage(path)))
            stack.push_back(listingOf(path, options.entriesPerFolder));
    }
}

} // namespace sonavo
