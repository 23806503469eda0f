#include "actions/move_journal.h"

#include "actions/folders.h"

#include <QDataStream>
#include <QFile>
#include <QIODevice>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <map>
#include <utility>

namespace sonavo {
namespace {

enum class RecordType : quint8
{
    Begin,
    Made,
    End,
};

constexpr auto STREAM_VERSION = QDataStream::Qt_6_4;
/// At the beginning of every record, to be changed with the format: other records are not read.
constexpr quint32 FORMAT = 0x534d4a31;
/// Far more than what one file's move writes; what is longer is no journal.
constexpr qint64 MAX_SIZE = 64 * 1024 * 1024;

/// Nanoseconds since the epoch, as file systems take their times.
qint64 now()
{
    constexpr qint64 NANOSECONDS_PER_SECOND = 1'000'000'000;
    timespec time = {};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &time);
    return time.tv_sec * NANOSECONDS_PER_SECOND + time.tv_nsec;
}

QByteArray absolutePath(const QByteArray &path)
{
    if (path.isEmpty() || path.startsWith('/'))
        return path;
    std::error_code error;
    return QByteArray(std::filesystem::absolute(path.constData(), error).c_str());
}

void write(QDataStream &stream, const FileSnapshot &file)
{
    stream << quint64{file.device} << quint64{file.inode} << quint32{file.mode} << file.size << file.modified
           << file.changed << file.hardLinks << file.hasLastingInode;
}

FileSnapshot readSnapshot(QDataStream &stream)
{
    FileSnapshot file;
    quint64 device = 0;
    quint64 inode = 0;
    quint32 mode = 0;
    stream >> device >> inode >> mode >> file.size >> file.modified >> file.changed >> file.hardLinks >>
        file.hasLastingInode;
    file.device = device;
    file.inode = inode;
    file.mode = mode;
    return file;
}

QByteArray toBytes(const Leftover &leftover)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(STREAM_VERSION);
    stream << now() << leftover.kind << absolutePath(leftover.path) << absolutePath(leftover.finalPath)
           << absolutePath(leftover.source) << leftover.content << leftover.offset
           << leftover.sourceSnapshot.has_value();
    if (leftover.sourceSnapshot)
        write(stream, *leftover.sourceSnapshot);
    return bytes;
}

void read(QDataStream &stream, MoveJournal::Unfinished &record)
{
    Leftover &leftover = record.leftover;
    bool hasSnapshot = false;
    stream >> record.recorded >> leftover.kind >> leftover.path >> leftover.finalPath >> leftover.source >>
        leftover.content >> leftover.offset >> hasSnapshot;
    if (hasSnapshot)
        leftover.sourceSnapshot = readSnapshot(stream);
}

/// @return the record's number; nothing at the end
std::optional<quint64> readRecord(QDataStream &stream, std::map<quint64, MoveJournal::Unfinished> &open)
{
    quint32 format = 0;
    RecordType type = RecordType::Begin;
    quint64 id = 0;
    QByteArray payload;
    stream >> format >> type >> id >> payload;
    if (stream.status() != QDataStream::Ok || format != FORMAT)
        return std::nullopt;
    QDataStream content(payload);
    content.setVersion(STREAM_VERSION);
    if (type == RecordType::Begin)
        read(content, open[id]);
    else if (type == RecordType::End)
        open.erase(id);
    else if (const auto found = open.find(id); found != open.end())
        found->second.made = readSnapshot(content);
    return id;
}

} // namespace

MoveJournal::Entry::Entry(MoveJournal *journal, quint64 id)
    : m_journal(journal)
    , m_id(id)
{}

MoveJournal::Entry::Entry(Entry &&other) noexcept
    : m_journal(std::exchange(other.m_journal, nullptr))
    , m_id(other.m_id)
{}

MoveJournal::Entry &MoveJournal::Entry::operator=(Entry &&other) noexcept
{
    std::swap(m_journal, other.m_journal);
    std::swap(m_id, other.m_id);
    return *this;
}

MoveJournal::Entry::~Entry()
{
    if (m_journal)
        m_journal->end(m_id);
}

void MoveJournal::Entry::made(const FileSnapshot &snapshot)
{
    if (!m_journal)
        return;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(STREAM_VERSION);
    write(stream, snapshot);
    m_journal->append(static_cast<quint8>(RecordType::Made), m_id, bytes);
}

void MoveJournal::Entry::keep()
{
    if (MoveJournal *journal = std::exchange(m_journal, nullptr))
        journal->keep(m_id);
}

MoveJournal::MoveJournal(QString folder)
    : m_folder(std::move(folder))
{}

MoveJournal::~MoveJournal()
{
    if (m_file < 0)
        return;
    // While it is locked: nobody else can have taken it over.
    if (m_openEntries == 0 && m_keptSize == 0)
        ::unlink(m_path.constData());
    ::close(m_file);
}

MoveJournal::Entry MoveJournal::record(const Leftover &leftover)
{
    if (m_file < 0 && !openFile())
        return {};
    if (!append(static_cast<quint8>(RecordType::Begin), m_lastId + 1, toBytes(leftover)))
        return {};
    ++m_openEntries;
    return {this, ++m_lastId};
}

MoveJournal::Entry MoveJournal::recordIn(MoveJournal *journal, const Leftover &leftover)
{
    return journal ? journal->record(leftover) : Entry();
}

bool MoveJournal::openFile()
{
    if (m_folder.isEmpty())
        return false;
    constexpr mode_t OWNER_ONLY = 0700;
    if (makeFolders(QFile::encodeName(m_folder), OWNER_ONLY) != 0)
        return false;
    // Whoever looks for journals of processes that have ended can find one before it is locked, and takes it.
    constexpr int MAX_ATTEMPTS = 20;
    for (int i = 0; i < MAX_ATTEMPTS; ++i) {
        const QString name = QStringLiteral("/%1.moves").arg(QRandomGenerator::system()->generate64(), 0, 16);
        m_path = QFile::encodeName(m_folder + name);
        m_file = ::open(m_path.constData(), O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600);
        if (m_file < 0)
            return false;
        struct stat status = {};
        if (::flock(m_file, LOCK_EX | LOCK_NB) == 0 && ::fstat(m_file, &status) == 0 && status.st_nlink > 0)
            return true;
        ::unlink(m_path.constData());
        ::close(std::exchange(m_file, -1));
    }
    m_folder.clear(); // not once for every file: a file system without locks
    return false;
}

bool MoveJournal::append(quint8 type, quint64 id, const QByteArray &payload)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(STREAM_VERSION);
    stream << FORMAT << type << id << payload;
    const ssize_t written = ::write(m_file, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (written == bytes.size()) {
        m_size += written;
        return true;
    }
    cutTo(m_size); // the records that follow have to be readable
    return false;
}

void MoveJournal::cutTo(qint64 size)
{
    if (::ftruncate(m_file, size) == 0)
        m_size = size;
}

void MoveJournal::end(quint64 id)
{
    --m_openEntries;
    const bool isBeforeKept = id <= m_lastKeptId;
    if (m_openEntries == 0 && !isBeforeKept) {
        cutTo(m_keptSize);
        return;
    }
    append(static_cast<quint8>(RecordType::End), id, {});
    if (isBeforeKept)
        m_keptSize = m_size;
}

void MoveJournal::keep(quint64 id)
{
    --m_openEntries;
    m_lastKeptId = std::max(m_lastKeptId, id);
    m_keptSize = m_size;
}

std::unique_ptr<MoveJournal> MoveJournal::takeOver(const QString &file)
{
    auto journal = std::make_unique<MoveJournal>(QString());
    const QByteArray path = QFile::encodeName(file);
    const int descriptor = ::open(path.constData(), O_RDWR | O_APPEND | O_CLOEXEC | O_NOFOLLOW);
    struct stat status = {};
    if (descriptor < 0 || ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 || ::fstat(descriptor, &status) != 0 ||
        status.st_nlink == 0 || status.st_size > MAX_SIZE) {
        if (descriptor >= 0)
            ::close(descriptor);
        return nullptr;
    }
    journal->m_path = path;
    journal->m_file = descriptor;
    journal->m_size = journal->m_keptSize = status.st_size;
    return journal;
}

std::vector<MoveJournal::Unfinished> MoveJournal::takeUnfinished()
{
    std::map<quint64, Unfinished> open;
    qint64 complete = 0;
    QFile file;
    if (file.open(m_file, QIODevice::ReadOnly) && file.seek(0)) {
        QDataStream stream(&file);
        stream.setVersion(STREAM_VERSION);
        while (const auto id = readRecord(stream, open)) {
            m_lastId = std::max(m_lastId, *id);
            complete = file.pos();
        }
    }
    cutTo(complete); // the last one can be torn
    m_keptSize = 0;
    std::vector<Unfinished> unfinished;
    for (auto &[id, record] : open) {
        record.entry = Entry(this, id);
        unfinished.push_back(std::move(record));
    }
    m_openEntries = static_cast<qint64>(unfinished.size());
    return unfinished;
}

QString moveJournalFolder()
{
    const QString folder = userDataFolder();
    return folder.isEmpty() ? folder : folder + QStringLiteral("/sonavo");
}

} // namespace sonavo
