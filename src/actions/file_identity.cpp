#include "actions/file_identity.h"

#include <QFile>

#include <sys/stat.h>
#include <system_error>

#include <cerrno>
#include <filesystem>

namespace sonavo {
namespace {

std::optional<struct stat> statusOf(const QByteArray &path)
{
    struct stat status
    {};
    if (::stat(path.constData(), &status) != 0)
        return std::nullopt;
    return status;
}

FileIdentity::Node nodeOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino};
}

/// The path that a symbolic link leads to; any other path as it is.
QByteArray withoutLink(const QByteArray &path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path link(path.constData());
    if (!fs::is_symlink(link, error))
        return path;
    const fs::path target = fs::canonical(link, error);
    return error ? path : QByteArray(target.c_str());
}

} // namespace

size_t qHash(const FileIdentity::Node &node, size_t seed)
{
    return qHashMulti(seed, quint64(node.device), quint64(node.inode));
}

std::optional<FileIdentity> identityOf(const QString &path)
{
    const QByteArray encoded = withoutLink(QFile::encodeName(path));
    const qsizetype nameStart = encoded.lastIndexOf('/') + 1;
    const auto file = statusOf(encoded);
    const auto folder = statusOf(nameStart > 0 ? encoded.first(nameStart) : QByteArray("."));
    if (!file || !folder || !S_ISREG(file->st_mode))
        return std::nullopt;
    return FileIdentity{nodeOf(*folder), encoded.sliced(nameStart), nodeOf(*file), file->st_nlink == 1};
}

bool isGone(const QString &path)
{
    struct stat status
    {};
    if (::stat(QFile::encodeName(path).constData(), &status) == 0)
        return !S_ISREG(status.st_mode);
    return errno == ENOENT || errno == ENOTDIR;
}

bool areOneFile(const FileIdentity &a, const FileIdentity &b)
{
    FileSet files;
    files.insert(a);
    return files.contains(b);
}

void FileSet::insert(const FileIdentity &identity)
{
    m_entries.insert({identity.folder, identity.name});
    if (identity.hasOneName)
        m_files.insert(identity.file);
}

bool FileSet::contains(const FileIdentity &identity) const
{
    return m_entries.contains({identity.folder, identity.name}) ||
           (identity.hasOneName && m_files.contains(identity.file));
}

} // namespace sonavo
