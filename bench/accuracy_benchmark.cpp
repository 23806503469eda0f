// How many of the duplicates in records with known truth are found, and how many of those found are right.

#include "analysis/find_further.h"
#include "bench/direct_finder.h"
#include "import/song_reading.h"

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

enum class Names
{
    /// As the source has them, which can hold track numbers and album names.
    Raw,
    /// Artist and title alone, as far as the record tells them apart.
    Tidy
};

enum class Records
{
    All,
    NotInLatinLetters
};

/// A line of the file.
struct Record
{
    /// Equal for records of the same recording.
    QString cluster;
    QString source;
    QString artist;
    QString title;
    QString album;
    double seconds = 0.0;
};

/// A file as a user could have it, and of which recording it is.
struct LabelledSong
{
    Song song;
    QString cluster;
};

/// The fields of comma-separated lines (RFC 4180), in the order of the file.
std::vector<QStringList> parseCsv(const QString &text)
{
    std::vector<QStringList> lines(1);
    QString field;
    bool isQuoted = false;
    const auto endField = [&] { lines.back() << std::exchange(field, QString()); };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (isQuoted && c == u'"' && text.sliced(i + 1).startsWith(u'"'))
            field += text[++i];
        else if (c == u'"')
            isQuoted = !isQuoted;
        else if (isQuoted || (c != u',' && c != u'\n' && c != u'\r'))
            field += c;
        else if (c != u'\r')
            endField();
        if (!isQuoted && c == u'\n')
            lines.emplace_back();
    }
    endField();
    return lines;
}

/// Sources write "219", "3m 39sec", "3:39", "219000" (milliseconds) or "3.65" (minutes).
double secondsOf(const QString &length)
{
    static const QRegularExpression parts(u"^(\\d+)(?:m|:)\\s*(\\d+)(?:sec|s)?$"_s);
    constexpr double LEAST_MILLISECONDS = 20'000;
    if (const auto match = parts.match(length); match.hasMatch())
        return match.captured(1).toDouble() * 60 + match.captured(2).toDouble();
    const double number = length.toDouble();
    if (length.contains(u'.'))
        return number * 60;
    return number >= LEAST_MILLISECONDS ? number / 1000 : number;
}

/// @return the records with a length
std::vector<Record> readRecords(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const std::vector<QStringList> lines = parseCsv(QString::fromUtf8(file.readAll()));
    const QStringList &header = lines.front();
    std::vector<Record> records;
    for (auto line = lines.begin() + 1; line < lines.end(); ++line) {
        const auto field = [&](const QString &name) {
            const QString value = line->value(header.indexOf(name)).trimmed();
            const bool isMissing = value == u"null" || value == u"unk." || value == u"[unknown]";
            return isMissing ? QString() : value;
        };
        const Record record{field(u"CID"_s),   field(u"SourceID"_s), field(u"artist"_s),
                            field(u"title"_s), field(u"album"_s),    secondsOf(field(u"length"_s))};
        if (record.seconds >= 1.0 && !record.title.isEmpty())
            records.push_back(record);
    }
    return records;
}

QString fileNameOf(const Record &record, Names names)
{
    static const QRegularExpression trackNumber(u"^\\d{1,3}\\s*-\\s*"_s);
    QString title = record.title;
    if (names == Names::Tidy) {
        title.remove(trackNumber);
        for (const QString &album : {u" - "_s + record.album, u" ("_s + record.album + u')'}) {
            if (!record.album.isEmpty() && title.endsWith(album) && title.size() > album.size())
                title.chop(album.size());
        }
    }
    QString name = record.artist.isEmpty() ? title : record.artist + u" - "_s + title;
    name.replace(u'/', u'_');
    constexpr qsizetype LONGEST_NAME = 240;
    const QString shortened =
        QString::fromUtf8(name.toUtf8().first(std::min<qsizetype>(name.toUtf8().size(), LONGEST_NAME)));
    return QString(shortened).remove(QChar::ReplacementCharacter) + u".mp3"_s;
}

bool isInLatinLetters(const QString &name)
{
    static const QRegularExpression others(uR"([^\x{0}-\x{24F}\x{2000}-\x{206F}])"_s);
    return !name.contains(others);
}

/// In the order of a scan.
std::vector<LabelledSong> songsOf(const std::vector<Record> &records, Names names, Records which)
{
    std::vector<LabelledSong> songs;
    QSet<QString> paths;
    SongBuilder builder;
    for (const Record &record : records) {
        const QString name = fileNameOf(record, names);
        if (name.startsWith(u'.') || (which == Records::NotInLatinLetters && isInLatinLetters(name)))
            continue;
        QString path;
        for (int copy = 0; path.isEmpty() || paths.contains(path); ++copy)
            path = u"/%1/%2/%3"_s.arg(record.source).arg(copy).arg(name);
        paths << path;
        constexpr qint64 SIZE = 4'000'000;
        songs.push_back({builder.build(path, {record.seconds, SIZE, {}}), record.cluster});
    }
    std::sort(songs.begin(), songs.end(), [](const LabelledSong &a, const LabelledSong &b) {
        return a.song.path.toUtf8() < b.song.path.toUtf8();
    });
    return songs;
}

/// Every two songs of one group are a pair that was found, every two of one cluster a true one.
struct Accuracy
{
    qint64 found = 0;
    qint64 right = 0;
    qint64 existing = 0;

    [[nodiscard]] double precision() const { return double(right) / double(std::max<qint64>(found, 1)); }
    [[nodiscard]] double recall() const { return double(right) / double(std::max<qint64>(existing, 1)); }
};

qint64 pairsIn(const QHash<QString, qint64> &counts)
{
    qint64 pairs = 0;
    for (const qint64 count : counts)
        pairs += count * (count - 1) / 2;
    return pairs;
}

Accuracy accuracyOf(const QList<DuplicateGroup> &groups, const std::vector<LabelledSong> &songs)
{
    QHash<QUuid, QString> clusters;
    QHash<QString, qint64> all;
    for (const LabelledSong &labelled : songs) {
        clusters[labelled.song.id] = labelled.cluster;
        ++all[labelled.cluster];
    }
    Accuracy accuracy;
    accuracy.existing = pairsIn(all);
    for (const DuplicateGroup &group : groups) {
        QHash<QString, qint64> counts;
        for (const Song &song : membersOf(group))
            ++counts[clusters[song.id]];
        const qint64 members = group.duplicates.size() + 1;
        accuracy.found += members * (members - 1) / 2;
        accuracy.right += pairsIn(counts);
    }
    return accuracy;
}

void printRow(const char *title, const std::vector<Record> &records, Names names, Records which)
{
    const std::vector<LabelledSong> labelled = songsOf(records, names, which);
    QList<Song> songs;
    for (const LabelledSong &song : labelled)
        songs << song.song;
    DuplicateFinder finder(songs);
    const Accuracy passes = accuracyOf(groupsOf(finder), labelled);
    const Accuracy further =
        accuracyOf(findFurther(songs, {}, [](double) {}).value_or(QList<DuplicateGroup>()), labelled);
    std::printf("| %-32s | %6lld | %6lld | %.4f | %.3f | %.4f | %.3f |\n", title,
                static_cast<long long>(songs.size()), static_cast<long long>(passes.existing),
                passes.precision(), passes.recall(), further.precision(), further.recall());
}

} // namespace
} // namespace sonavo

int main(int argc, char **argv)
{
    using namespace sonavo;
    const std::vector<Record> records =
        argc == 2 ? readRecords(QFile::decodeName(argv[1])) : std::vector<Record>();
    if (records.empty()) {
        std::fprintf(stderr, "Usage: bench_accuracy FILE, which docs/accuracy.md describes\n");
        return EXIT_FAILURE;
    }
    std::printf(
        "| names | songs | true pairs | four passes: precision | recall | looking further: precision | "
        "recall |\n|---|---|---|---|---|---|---|\n");
    printRow("as the sources have them", records, Names::Raw, Records::All);
    printRow("tidy", records, Names::Tidy, Records::All);
    printRow("not in Latin letters", records, Names::Raw, Records::NotInLatinLetters);
    printRow("not in Latin letters, tidy", records, Names::Tidy, Records::NotInLatinLetters);
    return EXIT_SUCCESS;
}
