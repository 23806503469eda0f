#include "analysis/direct_analysis.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QUuid>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace sonavo::direct {
namespace {

using namespace Qt::StringLiterals;

/// 1 where both are empty.
double similarity(const QString &a, const QString &b)
{
    if (a.isEmpty() && b.isEmpty())
        return 1.0;
    const auto longer = std::max(a.toUcs4().size(), b.toUcs4().size());
    return 1.0 - double(levenshteinDistance(a, b)) / double(longer);
}

QSet<QString> wordsOf(const QString &text, qsizetype leastLength)
{
    QSet<QString> words;
    for (const QString &word : normalizeString(text).split(u' ', Qt::SkipEmptyParts)) {
        if (word.size() >= leastLength)
            words << word;
    }
    return words;
}

bool contains(const QString &text, const QString &part)
{
    return !part.isEmpty() && text.toLower().contains(part.toLower());
}

QList<QList<Song>> bucketsOf(const QList<Song> &songs, const std::function<QString(const Song &)> &keyOf)
{
    QHash<QString, qsizetype> numbers;
    QList<QList<Song>> buckets;
    for (const Song &song : songs) {
        const QString key = keyOf(song);
        if (!numbers.contains(key)) {
            numbers[key] = buckets.size();
            buckets.emplace_back();
        }
        buckets[numbers[key]] << song;
    }
    buckets.removeIf([](const QList<Song> &bucket) { return bucket.size() < 2; });
    return buckets;
}

QList<QList<Song>> clusterSongs(const QList<Song> &songs)
{
    QSet<QUuid> placed;
    QList<QList<Song>> clusters;
    for (const Song &seed : songs) {
        if (placed.contains(seed.id))
            continue;
        placed << seed.id;
        QList<Song> cluster{seed};
        for (const Song &candidate : songs) {
            if (candidate.id == seed.id || placed.contains(candidate.id) || !songsMatch(seed, candidate))
                continue;
            cluster << candidate;
            placed << candidate.id;
        }
        if (cluster.size() >= 2)
            clusters << cluster;
    }
    return clusters;
}

struct Run
{
    QSet<QString> processedPaths;
    QList<DuplicateGroup> groups;

    [[nodiscard]] QList<Song> unplaced(QList<Song> songs) const
    {
        songs.removeIf([this](const Song &song) { return processedPaths.contains(song.path); });
        return songs;
    }

    void makeGroups(const QList<Song> &bucket, bool filtersArtists)
    {
        for (const QList<Song> &cluster : clusterSongs(bucket)) {
            const Song original = *std::max_element(cluster.begin(), cluster.end(),
                                                    [](auto &a, auto &b) { return a.size < b.size; });
            QList<Song> duplicates = cluster;
            duplicates.removeIf([&](const Song &song) {
                return song.id == original.id || (filtersArtists && !artistsCompatible(song, original));
            });
            if (duplicates.isEmpty())
                break; // only the artist filter can leave a cluster without duplicates
            groups << DuplicateGroup{{}, original, duplicates, int(groups.size() % 6)};
            for (const Song &song : membersOf(groups.last()))
                processedPaths << song.path;
        }
    }
};

QString joined(const QString &title)
{
    return QString(title).remove(u' ');
}

QString withoutTrackNumber(const QString &title)
{
    static const QRegularExpression number(u"^[0-9]{1,3} "_s);
    return QString(title).remove(number);
}

QString withoutTail(const QString &title)
{
    static const QRegularExpression brackets(uR"([(\[][^(\[]*[)\]]\s*$)"_s);
    const qsizetype begin = title.contains(brackets) ? title.indexOf(brackets) : title.lastIndexOf(u" - ");
    const QString before = normalizeAllScripts(title.first(std::max<qsizetype>(begin, 0)));
    const bool isTail = !withoutTrackNumber(before + u' ').trimmed().isEmpty() &&
                        normalizeAllScripts(title).startsWith(before + u' ');
    return isTail ? before : normalizeAllScripts(title);
}

QSet<QString> furtherTitleWordsOf(const QString &title)
{
    static const QRegularExpression shortWords(
        u"[\\p{Han}\\p{Hiragana}\\p{Katakana}\\p{Hangul}\\p{Thai}\\p{Lao}\\p{Khmer}\\p{Myanmar}]"_s);
    QSet<QString> words;
    for (const QString &word : normalizeAllScripts(title).split(u' ', Qt::SkipEmptyParts)) {
        if (word.toUcs4().size() >= 3 || word.contains(shortWords))
            words << word;
    }
    for (const QString &text : {normalizeAllScripts(title), withoutTail(title.trimmed())}) {
        if (const QString word = joined(withoutTrackNumber(text)); word.toUcs4().size() >= 3)
            words << word;
    }
    return words;
}

bool haveCompatibleNumbers(const QString &a, const QString &b)
{
    const auto numbersOf = [](const QString &title) {
        static const QRegularExpression number(u"0*([0-9]+)"_s);
        QList<QString> numbers;
        for (auto match = number.globalMatch(title); match.hasNext();)
            numbers << match.next().captured(1);
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    };
    const auto numbersA = numbersOf(a);
    const auto numbersB = numbersOf(b);
    return std::includes(numbersA.begin(), numbersA.end(), numbersB.begin(), numbersB.end()) ||
           std::includes(numbersB.begin(), numbersB.end(), numbersA.begin(), numbersA.end());
}

bool containsWords(const QString &text, const QString &words)
{
    return (u' ' + text + u' ').contains(u' ' + words + u' ');
}

QString furtherArtistOf(const Song &song)
{
    static const QRegularExpression the(u"^the "_s);
    static const QRegularExpression theBehind(u" the$"_s);
    const QString artist = normalizeAllScripts(song.artist);
    const bool isBehind = !artist.contains(the) && song.artist.toLower().endsWith(u", the");
    return QString(artist).remove(isBehind ? theBehind : the);
}

/// The artist, and the guests if there are any.
QStringList artistAndGuests(const QString &artist)
{
    static const QRegularExpression announcement(u" (?:feat|ft|featuring)(?: |$)"_s);
    const auto match = announcement.match(artist);
    if (!match.hasMatch())
        return {artist};
    const QString guests = artist.mid(match.capturedEnd());
    return guests.isEmpty() ? QStringList{artist.first(match.capturedStart())}
                            : QStringList{artist.first(match.capturedStart()), guests};
}

bool songsMatchFurther(const Song &a, const Song &b)
{
    if (!(std::abs(a.duration - b.duration) <= 5.0))
        return false;

    const QString wholeA = normalizeAllScripts(a.title);
    const QString wholeB = normalizeAllScripts(b.title);
    if (!furtherTitleWordsOf(a.title).intersects(furtherTitleWordsOf(b.title)))
        return false;

    const QStringList artistsA = artistAndGuests(furtherArtistOf(a));
    const QStringList artistsB = artistAndGuests(furtherArtistOf(b));
    const QString &artistA = artistsA[0];
    const QString &artistB = artistsB[0];
    const bool haveGuests = artistsA.size() > 1 && artistsB.size() > 1;
    if (similarity(artistA, artistB) < 0.7 ||
        (haveGuests && similarity(artistsA.join(u' '), artistsB.join(u' ')) < 0.7))
        return false;

    const bool areOfOneKind =
        (wholeA == withoutTrackNumber(wholeA)) == (wholeB == withoutTrackNumber(wholeB));
    const auto compared = [&](const QString &t) { return areOfOneKind ? t : withoutTrackNumber(t); };
    const QString titleA = compared(wholeA);
    const QString titleB = compared(wholeB);
    const QString shortA = compared(withoutTail(a.title.trimmed()));
    const QString shortB = compared(withoutTail(b.title.trimmed()));
    const auto areSimilar = [&](const QString &x, const QString &y) {
        return similarity((artistA + u' ' + x).trimmed(), (artistB + u' ' + y).trimmed()) >= 0.9;
    };
    return haveCompatibleNumbers(titleA, titleB) &&
           (containsWords(titleA, titleB) || containsWords(titleB, titleA) || areSimilar(titleA, titleB) ||
            ((shortA == titleA) != (shortB == titleB) && areSimilar(shortA, shortB)));
}

} // namespace

QString normalizeString(const QString &text)
{
    static const QRegularExpression brackets(uR"([\(\)\[\]\{\}])"_s);
    static const QRegularExpression separators(u"[^a-z0-9]+"_s);
    // Lone surrogates are replaced first: in a text that holds one the expressions would find nothing.
    const QString lower = QString::fromUtf8(text.toUtf8()).toLower();
    return QString(lower).remove(brackets).replace(separators, u" "_s).simplified();
}

int levenshteinDistance(const QString &textA, const QString &textB)
{
    const QList<uint> a = textA.toUcs4();
    const QList<uint> b = textB.toUcs4();
    const qsizetype width = b.size() + 1;
    std::vector<int> table(std::size_t((a.size() + 1) * width));
    const auto cell = [&](qsizetype i, qsizetype j) -> int & { return table[std::size_t(i * width + j)]; };
    for (int i = 0; i <= a.size(); ++i)
        cell(i, 0) = i;
    for (int j = 0; j <= b.size(); ++j)
        cell(0, j) = j;
    for (int i = 0; i < a.size(); ++i) {
        for (int j = 0; j < b.size(); ++j) {
            cell(i + 1, j + 1) =
                a[i] == b[j] ? cell(i, j) : 1 + std::min({cell(i, j + 1), cell(i + 1, j), cell(i, j)});
        }
    }
    return cell(a.size(), b.size());
}

bool songsMatch(const Song &seed, const Song &candidate)
{
    if (!(std::abs(seed.duration - candidate.duration) <= 5.0))
        return false;

    const bool titleContains = contains(seed.title, candidate.title) || contains(candidate.title, seed.title);
    const bool nameContains = contains(seed.name, candidate.name) || contains(candidate.name, seed.name);
    const QString fullA = normalizeString(seed.artist + u" - "_s + seed.title);
    const QString fullB = normalizeString(candidate.artist + u" - "_s + candidate.title);
    if (!(titleContains || nameContains || similarity(fullA, fullB) >= 0.9))
        return false;

    const QString artistA = normalizeString(seed.artist);
    const QString artistB = normalizeString(candidate.artist);
    return similarity(artistA, artistB) >= 0.7 &&
           wordsOf(seed.title, 3).intersects(wordsOf(candidate.title, 3));
}

bool artistsCompatible(const Song &duplicate, const Song &original)
{
    return wordsOf(duplicate.artist, 1).intersects(wordsOf(original.artist, 1)) ||
           original.artist.isEmpty() || duplicate.artist.isEmpty();
}

QList<DuplicateGroup> analyzeDuplicates(const QList<Song> &songs)
{
    const auto title = [](const Song &s) { return normalizeString(s.title); };
    const auto name = [](const Song &s) { return normalizeString(s.name); };
    const auto both = [](const Song &s) {
        return normalizeString(s.artist) + u'_' + normalizeString(s.title);
    };
    const auto seconds = [](const Song &s) { return QString::number(qint64(std::trunc(s.duration))); };

    Run run;
    for (const QList<Song> &bucket : bucketsOf(songs, title))
        run.makeGroups(bucket, true);
    for (const QList<Song> &bucket : bucketsOf(songs, name))
        run.makeGroups(run.unplaced(bucket), false);
    const QList<Song> remaining = run.unplaced(songs);
    for (qsizetype start = 0; start < remaining.size(); start += 5000) {
        for (const QList<Song> &bucket : bucketsOf(remaining.mid(start, 5000), both))
            run.makeGroups(bucket, false);
    }
    for (const QList<Song> &bucket : bucketsOf(run.unplaced(songs), seconds))
        run.makeGroups(bucket, false);
    return run.groups;
}

QString normalizeAllScripts(const QString &text)
{
    static const QRegularExpression brackets(uR"([\(\)\[\]\{\}])"_s);
    static const QRegularExpression accents(uR"((?=\p{Inherited})(?![\x{3099}\x{309A}])\p{M})"_s);
    static const QRegularExpression separators(u"[^\\p{L}\\p{N}\\p{M}]+"_s);
    const QString folded = QString::fromUtf8(text.toUtf8())
                               .normalized(QString::NormalizationForm_KD)
                               .toUpper()
                               .toCaseFolded()
                               .normalized(QString::NormalizationForm_KD);
    const QString bare = QString(folded).remove(brackets).remove(accents);
    return QString(bare).replace(separators, u" "_s).trimmed().normalized(QString::NormalizationForm_C);
}

QList<DuplicateGroup> findFurther(const QList<Song> &songs)
{
    QSet<QString> paths;
    QList<Song> left;
    for (const Song &song : songs) {
        if (!paths.contains(song.path))
            left << song;
        paths << song.path;
    }
    const auto matchesOf = [&left](const Song &song) {
        QList<Song> matches = left;
        matches.removeIf([&](const Song &s) { return s.id == song.id || !songsMatchFurther(s, song); });
        return matches;
    };
    QHash<QUuid, qsizetype> counts;
    for (const Song &song : left)
        counts[song.id] = std::min<qsizetype>(matchesOf(song).size(), 100);
    QList<Song> centres = left;
    std::stable_sort(centres.begin(), centres.end(),
                     [&](const Song &a, const Song &b) { return counts[a.id] > counts[b.id]; });

    QHash<qsizetype, DuplicateGroup> groups;
    for (const Song &centre : centres) {
        if (!left.contains(centre))
            continue;
        const QList<Song> star = QList<Song>{centre} + matchesOf(centre);
        const Song original =
            *std::max_element(star.begin(), star.end(), [](auto &a, auto &b) { return a.size < b.size; });
        QList<Song> duplicates = star;
        duplicates.removeIf(
            [&](const Song &s) { return s.id == original.id || !songsMatchFurther(s, original); });
        if (duplicates.isEmpty())
            continue;
        const DuplicateGroup group{{}, original, duplicates, 0};
        qsizetype first = songs.size();
        for (const Song &song : membersOf(group)) {
            first = std::min(first, songs.indexOf(song));
            left.removeOne(song);
        }
        groups[first] = group;
    }
    QList<qsizetype> order = groups.keys();
    std::sort(order.begin(), order.end());
    QList<DuplicateGroup> result;
    for (const qsizetype first : order) {
        result << groups[first];
        result.last().color = int((result.size() - 1) % 6);
    }
    return result;
}

} // namespace sonavo::direct
