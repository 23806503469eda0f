#include "actions/moved_files_list.h"

#include "actions/descriptor.h"
#include "actions/folders.h"

#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QSet>

#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

namespace sonavo {
namespace {

const QByteArray HEADER = QByteArrayLiteral("New name,Original path\n");
/// Ends the search for a free name on a file system that misbehaves.
constexpr int MAX_LISTS = 10'000;

QByteArray quoted(QByteArray field)
{
    const auto isSpecial = [](char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; };
    return std::ranges::any_of(field, isSpecial) ? '"' + field.replace('"', "\"\"") + '"' : field;
}

QByteArray lineOf(const QByteArray &from, const QByteArray &to)
{
    QByteArray name = to.sliced(to.lastIndexOf('/') + 1);
    if (!name.isEmpty() && QByteArrayView("=+-@\t\r").contains(name.front()))
        name.prepend("./");
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(from.constData(), error);
    return quoted(name) + ',' + quoted(error ? from : QByteArray(absolute.c_str())) + '\n';
}

/// The lines after the header. A quoted field may contain line breaks.
QList<QByteArray> linesIn(const QByteArray &content)
{
    QList<QByteArray> lines;
    bool isQuoted = false;
    qsizetype begin = HEADER.size();
    for (qsizetype i = begin; i < content.size(); ++i) {
        isQuoted = isQuoted != (content[i] == '"');
        if (isQuoted || content[i] != '\n')
            continue;
        lines.append(content.sliced(begin, i + 1 - begin));
        begin = i + 1;
    }
    if (begin < content.size())
        lines.append(content.sliced(begin));
    return lines;
}

/// An open list.
class OpenList
{
public:
    OpenList(const QByteArray &path, int flags)
        : m_file(path, flags | O_NOFOLLOW | O_NONBLOCK, READABLE_BY_ALL)
    {}

    /// As in errno; 0 if the list was opened.
    [[nodiscard]] int error() const { return m_file.error(); }

    [[nodiscard]] std::optional<FileSnapshot> snapshot() const
    {
        const auto snapshot = takeSnapshot(m_file.get());
        const auto *file = std::get_if<FileSnapshot>(&snapshot);
        return file && S_ISREG(file->mode) && contains(HEADER, 0) ? std::optional(*file) : std::nullopt;
    }

    /// Where the last line begins; nothing if it is another one.
    [[nodiscard]] std::optional<qint64> offsetOfLast(const QByteArray &line) const
    {
        const auto file = snapshot();
        const qint64 offset = file ? file->size - line.size() : 0;
        return offset >= HEADER.size() && contains(line, offset) ? std::optional(offset) : std::nullopt;
    }

    /// Removes everything from an offset on, and the list with its only line.
    [[nodiscard]] bool cutTo(qint64 offset, const QByteArray &path) const
    {
        const bool isEmpty = offset == HEADER.size();
        return (isEmpty ? ::unlink(path.constData()) : ::ftruncate(m_file.get(), offset)) == 0;
    }

    /// @return an error number, 0 for success
    [[nodiscard]] int append(const QByteArray &text) const
    {
        if (const int error = m_file.write(text))
            return error;
        return ::fdatasync(m_file.get()) == 0 ? 0 : errno;
    }

private:
    [[nodiscard]] bool contains(const QByteArray &text, qint64 offset) const
    {
        QByteArray there(text.size(), '\0');
        const auto size = static_cast<std::size_t>(there.size());
        return ::pread(m_file.get(), there.data(), size, offset) == there.size() && there == text;
    }

    static constexpr mode_t READABLE_BY_ALL = 0666;

    Descriptor m_file;
};

/// Whether nobody else has changed or replaced a list.
bool isAsLeft(const OpenList &list, const FileSnapshot &before)
{
    const auto now = list.snapshot();
    return now && (!before.hasLastingInode || now->inode == before.inode) && now->size == before.size;
}

/// Removes the last line of a list, and the list with its only line.
/// @return its size afterwards; nothing if its last line is another one or it could not be changed
std::optional<qint64> cutLast(const QByteArray &path, const QByteArray &line)
{
    const OpenList list(path, O_RDWR);
    const auto offset = list.offsetOfLast(line);
    return offset && list.cutTo(*offset, path) ? offset : std::nullopt;
}

/// Writes a list anew without some of its lines.
void rewrite(const QByteArray &path, const QSet<QByteArray> &unwanted)
{
    QFile list(QFile::decodeName(path));
    const auto before = openAndTakeSnapshot(path);
    if (!std::holds_alternative<FileSnapshot>(before) || !list.open(QIODevice::ReadOnly))
        return;
    const QByteArray content = list.readAll();
    if (!content.startsWith(HEADER))
        return;
    QByteArray rest = HEADER;
    for (const QByteArray &line : linesIn(content)) {
        if (!unwanted.contains(line))
            rest += line;
    }
    const KnownFile old{path, std::get<FileSnapshot>(before)};
    if (rest == HEADER) {
        if (isUntouched(old))
            ::unlink(path.constData());
        return;
    }
    QSaveFile written(list.fileName());
    const bool isWritten = rest != content && written.open(QIODevice::WriteOnly) &&
                           written.write(rest) == rest.size() && isUntouched(old);
    if (isWritten)
        written.commit();
}

MoveJournal::Entry recordLine(const QByteArray &list, const QByteArray &line, qint64 offset,
                              const QByteArray &from, const QByteArray &to, MoveJournal *journal)
{
    return MoveJournal::recordIn(journal, {.kind = Leftover::Kind::Line,
                                           .path = list,
                                           .finalPath = to,
                                           .source = from,
                                           .content = line,
                                           .offset = offset});
}

} // namespace

MovedFilesList::MovedFilesList(QByteArray folder)
    : m_folder(std::move(folder))
{}

std::variant<MoveJournal::Entry, int> MovedFilesList::add(const QByteArray &from, const QByteArray &to,
                                                          MoveJournal *journal)
{
    m_lastLine = lineOf(from, to);
    const OpenList list(m_file ? m_file->path : QByteArray(), O_RDWR | O_APPEND);
    if (!m_file || !isAsLeft(list, m_file->snapshot))
        return create(from, to, journal);
    const qint64 offset = m_file->snapshot.size;
    MoveJournal::Entry entry = recordLine(m_file->path, m_lastLine, offset, from, to, journal);
    const int error = list.append(m_lastLine);
    if (error == 0) {
        m_file->snapshot.size += m_lastLine.size();
        return entry;
    }
    if (!list.cutTo(offset, m_file->path))
        entry.keep();
    return error;
}

std::variant<MoveJournal::Entry, int> MovedFilesList::create(const QByteArray &from, const QByteArray &to,
                                                             MoveJournal *journal)
{
    for (int number = 0; number < MAX_LISTS; ++number) {
        const QByteArray suffix = number == 0 ? QByteArray() : " (" + QByteArray::number(number) + ')';
        const QByteArray path = m_folder + "/Moved files" + suffix + ".csv";
        if (isTaken(path))
            continue;
        const QByteArray content = HEADER + m_lastLine;
        MoveJournal::Entry entry = recordLine(path, content, 0, from, to, journal);
        const OpenList list(path, O_RDWR | O_CREAT | O_EXCL | O_APPEND);
        int error = list.error() != 0 ? list.error() : list.append(content);
        if (error == EEXIST)
            continue;
        if (error == 0)
            error = flushFolder(m_folder);
        const auto made = list.snapshot();
        if (error == 0 && made) {
            m_file = KnownFile{path, *made};
            return entry;
        }
        if (list.error() != 0 ? !isNothingAt(path) : ::unlink(path.constData()) != 0)
            entry.keep();
        return error != 0 ? error : EIO;
    }
    return EEXIST;
}

bool MovedFilesList::takeBack()
{
    const auto size = m_file ? cutLast(m_file->path, m_lastLine) : std::nullopt;
    if (!size)
        return false;
    m_file->snapshot.size = *size;
    if (size == HEADER.size())
        m_file.reset();
    return true;
}

MoveJournal::Entry MovedFilesList::recordRemoval(const MovedFile &file, MoveJournal *journal)
{
    const QByteArray line = lineOf(file.originalPath, file.path);
    const auto offset = OpenList(file.list, O_RDONLY).offsetOfLast(line);
    if (!offset)
        return {};
    const bool isOnly = *offset == HEADER.size();
    return recordLine(file.list, isOnly ? HEADER + line : line, isOnly ? 0 : *offset, file.originalPath,
                      file.path, journal);
}

bool MovedFilesList::removeLast(const MovedFile &file)
{
    return cutLast(file.list, lineOf(file.originalPath, file.path)).has_value();
}

void MovedFilesList::remove(const QList<MovedFile> &files)
{
    QHash<QByteArray, QSet<QByteArray>> unwanted;
    for (const MovedFile &file : files)
        unwanted[file.list].insert(lineOf(file.originalPath, file.path));
    for (auto it = unwanted.cbegin(); it != unwanted.cend(); ++it)
        rewrite(it.key(), it.value());
}

} // namespace sonavo
