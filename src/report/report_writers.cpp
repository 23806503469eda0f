#include "report/report_writers.h"

#include "model/byte_count.h"
#include "report/terminal_text.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace sonavo {
namespace {

/// Collects text and hands it to a device in large pieces.
class Writer
{
public:
    explicit Writer(QIODevice &device)
        : m_device(device)
    {}

    void add(const QByteArray &text)
    {
        constexpr qsizetype PIECE = 64 * 1024;
        m_pending += text;
        if (m_pending.size() >= PIECE)
            flush();
    }

    void addLine(const QString &text) { add(text.toUtf8() + '\n'); }

    [[nodiscard]] bool finish()
    {
        flush();
        return m_isComplete;
    }

private:
    void flush()
    {
        m_isComplete = m_isComplete && m_device.write(m_pending) == m_pending.size();
        m_pending.clear();
    }

    QIODevice &m_device;
    QByteArray m_pending;
    bool m_isComplete = true;
};

/// A song's line in the report, before its columns are aligned.
struct Row
{
    QString badge;
    QString name;
    QString type;
    QString duration;
    QString size;
    QString folder;
};

Row rowOf(const Song &song, const QString &badge)
{
    return {badge,
            escapedForTerminal(song.name),
            escapedForTerminal(song.fileType),
            song.formattedDuration(),
            formattedByteCount(song.size),
            escapedForTerminal(song.folderName)};
}

void addGroup(Writer &writer, const DuplicateGroup &group)
{
    QList<Row> rows{rowOf(group.original, QStringLiteral("ORIGINAL"))};
    for (const Song &duplicate : group.duplicates)
        rows.append(rowOf(duplicate, QStringLiteral("DUPLICATE")));

    const auto widthOf = [&rows](QString Row::*column) {
        qsizetype width = 0;
        for (const Row &row : std::as_const(rows))
            width = std::max(width, terminalWidth(row.*column));
        return width;
    };
    const qsizetype badgeWidth = widthOf(&Row::badge);
    const qsizetype nameWidth = widthOf(&Row::name);
    const qsizetype typeWidth = widthOf(&Row::type);
    const qsizetype durationWidth = widthOf(&Row::duration);
    const qsizetype sizeWidth = widthOf(&Row::size);

    writer.addLine(QStringLiteral("Group of %1 songs").arg(rows.size()));
    for (const Row &row : std::as_const(rows)) {
        const QStringList cells{
            paddedToWidth(row.badge, badgeWidth), paddedToWidth(row.name, nameWidth),
            paddedToWidth(row.type, typeWidth),   row.duration.rightJustified(durationWidth),
            row.size.rightJustified(sizeWidth),   row.folder};
        writer.addLine(QStringLiteral("  ") + cells.join(QStringLiteral("  ")));
    }
    writer.addLine({});
}

QString counted(qsizetype count, const QString &one, const QString &several)
{
    return QString::number(count) + u' ' + (count == 1 ? one : several);
}

QByteArray jsonOf(const Song &song)
{
    const QJsonObject object{
        {QStringLiteral("path"), song.path},         {QStringLiteral("name"), song.name},
        {QStringLiteral("duration"), song.duration}, {QStringLiteral("size"), song.size},
        {QStringLiteral("fileType"), song.fileType}, {QStringLiteral("artist"), song.artist},
        {QStringLiteral("title"), song.title},       {QStringLiteral("folderName"), song.folderName},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray jsonOf(const DuplicateGroup &group, const QHash<QUuid, qsizetype> &positions)
{
    QJsonArray duplicates;
    for (const Song &duplicate : group.duplicates)
        duplicates.append(positions.value(duplicate.id));
    const QJsonObject object{
        {QStringLiteral("original"), positions.value(group.original.id)},
        {QStringLiteral("duplicates"), duplicates},
        {QStringLiteral("color"), group.color},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// The items of a JSON array, one a line.
template <typename List, typename ToJson>
void addItems(Writer &writer, const List &items, ToJson toJson)
{
    for (qsizetype i = 0; i < items.size(); ++i)
        writer.add((i > 0 ? QByteArray(",\n") : QByteArray("\n")) + toJson(i));
}

} // namespace

bool writeTextReport(QIODevice &device, const QList<Song> &songs, const QList<DuplicateGroup> &groups)
{
    Writer writer(device);
    qsizetype duplicateCount = 0;
    qint64 duplicateBytes = 0;
    for (const DuplicateGroup &group : groups) {
        addGroup(writer, group);
        duplicateCount += group.duplicates.size();
        for (const Song &duplicate : group.duplicates)
            duplicateBytes += duplicate.size;
    }
    const QStringList totals{
        counted(groups.size(), QStringLiteral("group"), QStringLiteral("groups")),
        counted(duplicateCount, QStringLiteral("duplicate file"), QStringLiteral("duplicate files")),
        QStringLiteral("%1 to free").arg(formattedByteCount(duplicateBytes)),
        counted(songs.size(), QStringLiteral("song scanned"), QStringLiteral("songs scanned")),
    };
    writer.addLine(totals.join(QStringLiteral(" \u2022 ")));
    return writer.finish();
}

bool writeJsonReport(QIODevice &device, const QList<Song> &songs, const QList<DuplicateGroup> &groups)
{
    Writer writer(device);
    // Piece by piece: a document of half a million songs would take more memory than the songs themselves.
    writer.add("{\"songs\":[");
    addItems(writer, songs, [&](qsizetype i) { return jsonOf(songs[i]); });
    writer.add("\n],\"groups\":[");
    QHash<QUuid, qsizetype> positions;
    if (!groups.isEmpty()) {
        positions.reserve(songs.size());
        for (qsizetype i = 0; i < songs.size(); ++i)
            positions.insert(songs[i].id, i);
    }
    addItems(writer, groups, [&](qsizetype i) { return jsonOf(groups[i], positions); });
    writer.add("\n]}\n");
    return writer.finish();
}

} // namespace sonavo
