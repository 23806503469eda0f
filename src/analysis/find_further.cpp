#include "analysis/find_further.h"

#include "analysis/further_matches.h"
#include "analysis/further_songs.h"
#include "analysis/parallel.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <atomic>
#include <limits>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using Position = FurtherSongs::Position;
/// A centre and the songs that match it, in the order of the list.
using Star = std::vector<Position>;

/// Songs that are taken at a time: between two looks at the stop token, and by one thread.
constexpr std::size_t SONGS_PER_PART = 512;

/// How much of the work is done after each part of it, as measured on large libraries.
constexpr double AFTER_PREPARING = 0.25;
constexpr double AFTER_INDEXING = 0.4;
constexpr double AFTER_COUNTING = 0.9;

/// How many others each song matches, and which, where they are few.
class MatchCounts
{
public:
    explicit MatchCounts(std::size_t songs)
        : m_songs(songs)
    {}

    /// Threads may set different songs at the same time.
    void set(Position song, std::span<const Position> matches)
    {
        m_songs[song].count = static_cast<std::uint32_t>(matches.size());
        if (matches.size() <= MOST_MATCHES_KEPT)
            std::copy(matches.begin(), matches.end(), m_songs[song].matches.begin());
    }

    [[nodiscard]] std::size_t operator[](Position song) const { return m_songs[song].count; }

    /// All that match a song and are not removed, in no particular order.
    [[nodiscard]] std::vector<Position> matchesOf(Position song, FurtherMatches &matches) const
    {
        const Entry &entry = m_songs[song];
        if (entry.count > MOST_MATCHES_KEPT) {
            const auto found = matches.matchesOf(song, std::numeric_limits<std::size_t>::max());
            return {found.begin(), found.end()};
        }
        std::vector<Position> found;
        for (const Position match : std::span(entry.matches).first(entry.count)) {
            if (!matches.isRemoved(match))
                found.push_back(match);
        }
        return found;
    }

private:
    /// Nearly all songs match fewer others; the rest are looked for again. Limits memory, not what is found.
    static constexpr std::size_t MOST_MATCHES_KEPT = 8;

    struct Entry
    {
        std::uint32_t count = 0;
        std::array<Position, MOST_MATCHES_KEPT> matches{};
    };

    std::vector<Entry> m_songs;
};

/// Part of the work, as a sink of what is done of it.
class Progress
{
public:
    Progress(const FurtherProgressSink &report, double from, double to)
        : m_report(report)
        , m_from(from)
        , m_to(to)
    {}

    /// Any thread may call it; only the one that made this reports.
    /// @param fraction of this part, never less in a later call of the same thread
    void set(double fraction) const
    {
        if (std::this_thread::get_id() == m_thread)
            m_report(m_from + (m_to - m_from) * fraction);
    }

private:
    const FurtherProgressSink &m_report;
    const double m_from;
    const double m_to;
    const std::thread::id m_thread = std::this_thread::get_id();
};

/// Counts on all cores.
/// @return nothing if it was stopped
std::optional<MatchCounts> countMatches(const FurtherIndex &index, const std::stop_token &stop,
                                        const Progress &progress)
{
    const std::size_t songs = index.songs().size();
    const std::size_t parts = (songs + SONGS_PER_PART - 1) / SONGS_PER_PART;
    MatchCounts counts(songs);
    std::atomic<std::size_t> begun = 0;
    const auto countPart = [&](FurtherMatches &matches, std::size_t part) {
        progress.set(static_cast<double>(begun++) / static_cast<double>(parts));
        const std::size_t end = std::min((part + 1) * SONGS_PER_PART, songs);
        for (std::size_t i = part * SONGS_PER_PART; i < end; ++i) {
            const auto song = static_cast<Position>(i);
            counts.set(song, matches.matchesOf(song, MOST_MATCHES_COUNTED));
        }
    };
    const auto makeMatches = [&index](std::size_t) { return FurtherMatches(index); };
    if (!forEachInParallel(parts, 1, stop, makeMatches, countPart))
        return std::nullopt;
    return counts;
}

/// The songs that match another one: most matches first, then in the order of the list.
std::vector<Position> centresIn(const FurtherSongs &prepared, const MatchCounts &counts)
{
    std::vector<Position> centres;
    for (Position song = 0; song < prepared.size(); ++song) {
        if (counts[song] > 0)
            centres.push_back(song);
    }
    std::sort(centres.begin(), centres.end(), [&](Position a, Position b) {
        return counts[a] != counts[b] ? counts[a] > counts[b] : prepared[a].index < prepared[b].index;
    });
    return centres;
}

/// A centre and the songs that match it, or those of them that match their original.
/// @param star the songs that match the centre
/// @return the original first; alone if nothing matches the song
Star starOf(const QList<Song> &songs, const FurtherSongs &prepared, Position centre, Star star)
{
    std::sort(star.begin(), star.end(),
              [&](Position a, Position b) { return prepared[a].index < prepared[b].index; });
    star.insert(star.begin(), centre);

    const auto original = std::max_element(star.begin(), star.end(), [&](Position a, Position b) {
        return songs[prepared[a].index].size < songs[prepared[b].index].size;
    });
    std::rotate(star.begin(), original, original + 1);
    const FurtherSong &first = prepared[star.front()];
    const auto isStranger = [&](Position song) { return !songsMatchFurther(first, prepared[song]); };
    star.erase(std::remove_if(star.begin() + 1, star.end(), isStranger), star.end());
    return star;
}

/// Every song is in at most one of them.
/// @return nothing if it was stopped
std::optional<std::vector<Star>> starsOf(const QList<Song> &songs, const FurtherIndex &index,
                                         const MatchCounts &counts, const std::stop_token &stop,
                                         const Progress &progress)
{
    const FurtherSongs &prepared = index.songs();
    FurtherMatches matches(index);
    const std::vector<Position> centres = centresIn(prepared, counts);
    std::vector<Star> stars;
    for (std::size_t i = 0; i < centres.size(); ++i) {
        if (i % SONGS_PER_PART == 0) {
            if (stop.stop_requested())
                return std::nullopt;
            progress.set(static_cast<double>(i) / static_cast<double>(centres.size()));
        }
        if (matches.isRemoved(centres[i]))
            continue;
        Star star = starOf(songs, prepared, centres[i], counts.matchesOf(centres[i], matches));
        if (star.size() < 2)
            continue;
        for (const Position song : star)
            matches.remove(song);
        stars.push_back(std::move(star));
    }
    if (stop.stop_requested())
        return std::nullopt;
    return stars;
}

DuplicateGroup groupOf(const QList<Song> &songs, const FurtherSongs &prepared, const Star &star)
{
    DuplicateGroup group;
    group.id = QUuid::createUuid();
    group.original = songs[prepared[star.front()].index];
    for (auto song = star.begin() + 1; song != star.end(); ++song)
        group.duplicates.append(songs[prepared[*song].index]);
    return group;
}

/// In the order of their first songs.
QList<DuplicateGroup> groupsOf(const QList<Song> &songs, const FurtherSongs &prepared,
                               std::vector<Star> stars)
{
    const auto firstOf = [&](const Star &star) {
        std::uint32_t first = prepared[star.front()].index;
        for (const Position song : star)
            first = std::min(first, prepared[song].index);
        return first;
    };
    std::sort(stars.begin(), stars.end(),
              [&](const Star &a, const Star &b) { return firstOf(a) < firstOf(b); });
    QList<DuplicateGroup> groups;
    groups.reserve(static_cast<qsizetype>(stars.size()));
    for (const Star &star : stars) {
        groups.append(groupOf(songs, prepared, star));
        groups.last().color = static_cast<int>((groups.size() - 1) % GROUP_TINT_COUNT);
    }
    return groups;
}

} // namespace

std::optional<QList<DuplicateGroup>> findFurther(const QList<Song> &songs, const std::stop_token &stop,
                                                 const FurtherProgressSink &reportProgress)
{
    reportProgress(0.0);
    const FurtherSongs prepared(songs, stop);
    if (stop.stop_requested())
        return std::nullopt;
    reportProgress(AFTER_PREPARING);
    const FurtherIndex index(prepared, stop);
    if (stop.stop_requested())
        return std::nullopt;
    const std::optional<MatchCounts> counts =
        countMatches(index, stop, Progress(reportProgress, AFTER_INDEXING, AFTER_COUNTING));
    if (!counts)
        return std::nullopt;

    std::optional<std::vector<Star>> stars =
        starsOf(songs, index, *counts, stop, Progress(reportProgress, AFTER_COUNTING, 1.0));
    if (!stars)
        return std::nullopt;
    reportProgress(1.0);
    return groupsOf(songs, prepared, *std::move(stars));
}

QSet<QUuid> foundOnlyFurther(const QList<DuplicateGroup> &further, const QList<DuplicateGroup> &careful)
{
    QSet<QUuid> knownDuplicates;
    QHash<QUuid, QUuid> carefulOriginals;
    for (const DuplicateGroup &group : careful) {
        carefulOriginals.insert(group.original.id, group.original.id);
        for (const Song &duplicate : group.duplicates) {
            knownDuplicates.insert(duplicate.id);
            carefulOriginals.insert(duplicate.id, group.original.id);
        }
    }
    QSet<QUuid> added;
    for (const DuplicateGroup &group : further) {
        const QUuid original = carefulOriginals.value(group.original.id);
        for (const Song &duplicate : group.duplicates) {
            const bool isInOneGroup = !original.isNull() && carefulOriginals.value(duplicate.id) == original;
            if (!knownDuplicates.contains(duplicate.id) && !isInOneGroup)
                added.insert(duplicate.id);
        }
    }
    return added;
}

} // namespace sonavo
