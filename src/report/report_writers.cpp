#include "report/report_writers.h"

#include "model/bit_rate.h"
#include "model/byte_count.h"
#include "model/visible_controls.h"
#include "report/terminal_text.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace sonavo {
namespace {

/// Writes text to a device in large chunks.
class BufferedWriter
{
public:
    explicit BufferedWriter(QIODevice &device)
        : m_device(device)
    {}

    void add(const QByteArray &text)
    {
        constexpr qsizetype CHUNK_SIZE = 64 * 1024;
        m_buffer += text;
        if (m_buffer.size() >= CHUNK_SIZE)
            flush();
    }

    void addLine(const QString &text) { add(text.toUtf8() + '\n'); }

    [[nodiscard]] bool finish()
    {
        flush();
        return m_isOk;
    }

private:
    void flush()
    {
        m_isOk = m_isOk && m_device.write(m_buffer) == m_buffer.size();
        m_buffer.clear();
    }

    QIODevice &m_device;
    QByteArray m_buffer;
    bool m_isOk = true;
};

/// The cells of a song's line in the report.
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
            withVisibleControls(song.name),
            withVisibleControls(song.fileType),
            song.formattedDuration(),
            formattedByteCount(song.size),
            withVisibleControls(song.folderName)};
}

bool isOnlyFurther(const Song &duplicate, const OnlyFurther &onlyFurther)
{
    return onlyFurther && onlyFurther->contains(duplicate.id);
}

void addGroup(BufferedWriter &writer, const DuplicateGroup &group, const OnlyFurther &onlyFurther)
{
    QList<Row> rows{rowOf(group.original, QStringLiteral("ORIGINAL"))};
    for (const Song &duplicate : group.duplicates) {
        rows.append(rowOf(duplicate, isOnlyFurther(duplicate, onlyFurther) ? QStringLiteral("DUPLICATE*")
                                                                           : QStringLiteral("DUPLICATE")));
    }

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

QString counted(qsizetype count, const QString &singular, const QString &plural)
{
    return QString::number(count) + u' ' + (count == 1 ? singular : plural);
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

QByteArray jsonOf(const DuplicateGroup &group, const QHash<QUuid, qsizetype> &indexes,
                  const OnlyFurther &onlyFurther)
{
    QJsonArray duplicates;
    QJsonArray onlyFurtherDuplicates;
    for (const Song &duplicate : group.duplicates) {
        const qsizetype index = indexes.value(duplicate.id);
        duplicates.append(index);
        if (isOnlyFurther(duplicate, onlyFurther))
            onlyFurtherDuplicates.append(index);
    }
    QJsonObject object{
        {QStringLiteral("original"), indexes.value(group.original.id)},
        {QStringLiteral("duplicates"), duplicates},
        {QStringLiteral("color"), group.color},
    };
    if (onlyFurther) {
        object.insert(QStringLiteral("foundBy"),
                      onlyFurtherDuplicates.isEmpty() ? QStringLiteral("passes") : QStringLiteral("further"));
        object.insert(QStringLiteral("onlyFurther"), onlyFurtherDuplicates);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// A value in quotes. A spreadsheet calculates what begins with some characters, also in quotes, unless there
/// is an apostrophe before it.
QByteArray csvText(QString text)
{
    static const QString formulaStarts = QStringLiteral("=+-@\t\r\n");
    if (!text.isEmpty() && formulaStarts.contains(text.front()))
        text.prepend(u'\'');
    return '"' + text.replace(u'"', QStringLiteral("\"\"")).toUtf8() + '"';
}

QByteArray csvLine(qsizetype group, const Song &song, const QByteArray &role)
{
    const std::optional<double> rate = kilobitsPerSecond(song);
    return QByteArray::number(group) + ',' + role + ',' + csvText(song.path) + ',' +
           QByteArray::number(song.size) + ',' + QByteArray::number(song.duration, 'f', 3) + ',' +
           (rate ? QByteArray::number(*rate, 'f', 0) : QByteArray()) + "\r\n";
}

/// The items of a JSON array, one per line.
template <typename List, typename ToJson>
void addItems(BufferedWriter &writer, const List &items, ToJson toJson)
{
    for (qsizetype i = 0; i < items.size(); ++i)
        writer.add((i > 0 ? QByteArray(",\n") : QByteArray("\n")) + toJson(i));
}

} // namespace

bool writeTextReport(QIODevice &device, const QList<Song> &songs, const QList<DuplicateGroup> &groups,
                     const OnlyFurther &onlyFurther)
{
    BufferedWriter writer(device);
    for (const DuplicateGroup &group : groups)
        addGroup(writer, group, onlyFurther);
    const DuplicateTotals duplicates = totalsOf(groups);
    const QStringList totals{
        counted(groups.size(), QStringLiteral("group"), QStringLiteral("groups")),
        counted(duplicates.count, QStringLiteral("duplicate file"), QStringLiteral("duplicate files")),
        QStringLiteral("%1 to free").arg(formattedByteCount(duplicates.bytes)),
        counted(songs.size(), QStringLiteral("song scanned"), QStringLiteral("songs scanned")),
    };
    writer.addLine(totals.join(QStringLiteral(" \u2022 ")));
    if (onlyFurther && !onlyFurther->isEmpty()) {
        writer.addLine(QStringLiteral("* %1 only by looking further: listen before you delete")
                           .arg(counted(onlyFurther->size(), QStringLiteral("duplicate found"),
                                        QStringLiteral("duplicates found"))));
    }
    return writer.finish();
}

bool writeJsonReport(QIODevice &device, const QList<Song> &songs, const QList<DuplicateGroup> &groups,
                     const OnlyFurther &onlyFurther)
{
    BufferedWriter writer(device);
    // One song at a time: a QJsonDocument of half a million songs would take more memory than the songs.
    writer.add("{\"songs\":[");
    addItems(writer, songs, [&](qsizetype i) { return jsonOf(songs[i]); });
    writer.add("\n],\"groups\":[");
    QHash<QUuid, qsizetype> indexes;
    if (!groups.isEmpty()) {
        indexes.reserve(songs.size());
        for (qsizetype i = 0; i < songs.size(); ++i)
            indexes.insert(songs[i].id, i);
    }
    addItems(writer, groups, [&](qsizetype i) { return jsonOf(groups[i], indexes, onlyFurther); });
    writer.add("\n]}\n");
    return writer.finish();
}

bool writeCsvReport(QIODevice &device, const QList<DuplicateGroup> &groups)
{
    BufferedWriter writer(device);
    writer.add("group,role,path,size,seconds,kbit/s\r\n");
    for (qsizetype i = 0; i < groups.size(); ++i) {
        writer.add(csvLine(i + 1, groups[i].original, "original"));
        for (const Song &duplicate : groups[i].duplicates)
            writer.add(csvLine(i + 1, duplicate, "duplicate"));
    }
    return writer.finish();
}

} // namespace sonavo
