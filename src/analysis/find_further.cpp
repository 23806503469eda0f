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

/// Songs that a thread takes at a time where they are cheap, and songs from one report to the next.
constexpr std::size_t SONGS_PER_PART = 512;
constexpr std::size_t SONGS_PER_REPORT = 64;

/// How much of the work is done after each part of it, as measured on large libraries.
constexpr double AFTER_PREPARING = 0.4;
constexpr double AFTER_INDEXING = 0.6;
constexpr double AFTER_COUNTING = 0.95;

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
        m_songs[song].isCounted = true;
        if (matches.size() <= MOST_MATCHES_KEPT)
            std::copy(matches.begin(), matches.end(), m_songs[song].matches.begin());
    }

    [[nodiscard]] std::size_t size() const { return m_songs.size(); }
    [[nodiscard]] bool isCounted(Position song) const { return m_songs[song].isCounted; }
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
        bool isCounted = false;
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

/// Divides songs into stars. Songs that match MOST_MATCHES_COUNTED others are centres before all others, in
/// the order of the list, so that such a song need not be counted if one before it has taken it. Where
/// counting is expensive it waits for that: in a library of many similar songs, few are counted then.
class StarSearch
{
public:
    /// All must outlive this.
    StarSearch(const QList<Song> &songs, FurtherIndex &index, const std::stop_token &stop,
               const FurtherProgressSink &report)
        : m_songs(songs)
        , m_index(index)
        , m_stop(stop)
        , m_counting(report, AFTER_INDEXING, AFTER_COUNTING)
        , m_takingFew(report, AFTER_COUNTING, 1.0)
        , m_counts(index.songs().size())
        , m_removed(index)
        , m_counters(computingThreads())
    {}

    /// @return nothing if it was stopped; every song is in at most one star
    std::optional<std::vector<Star>> run()
    {
        if (!countCheapSongs() || !takeCentresOfMost() || !takeCentresOfFewer())
            return std::nullopt;
        return std::move(m_stars);
    }

private:
    /// Songs counted at a time in takeCentresOfMost(): some of them in vain.
    static constexpr std::size_t LEAST_BATCH = 64;
    static constexpr std::size_t LARGEST_BATCH = 4096;
    /// If more songs than this are expensive to count, another index pays off.
    static constexpr std::size_t MANY_EXPENSIVE = 1024;
    /// By one thread.
    static constexpr std::size_t MOST_COUNTED_TOGETHER = 16;

    bool countCheapSongs()
    {
        // Songs of one artist in a row, so that what is read of them stays in the processor's caches.
        const std::vector<Position> &songs = m_index.artists().songs();
        return countInParallel(songs.size(), SONGS_PER_PART, [&](FurtherMatches &matches, std::size_t i) {
            const Position song = songs[i];
            if (const auto found = matches.matchesIfCheap(song, MOST_MATCHES_COUNTED))
                setCount(song, *found);
        });
    }

    bool takeCentresOfMost()
    {
        const std::vector<Position> songs = songsOfMost();
        const auto expensive = std::count_if(songs.begin(), songs.end(),
                                             [this](Position song) { return !m_counts.isCounted(song); });
        if (static_cast<std::size_t>(expensive) >= MANY_EXPENSIVE)
            m_index.placeTexts(m_stop);
        std::size_t batchSize = LEAST_BATCH;
        for (auto begin = songs.begin(); begin != songs.end();) {
            std::vector<Position> uncounted;
            auto end = begin;
            for (; end != songs.end() && uncounted.size() < batchSize; ++end) {
                if (!m_removed.isRemoved(*end) && !m_counts.isCounted(*end))
                    uncounted.push_back(*end);
            }
            if (!countTogether(uncounted))
                return false;
            for (; begin != end; ++begin) {
                if (m_counts[*begin] >= MOST_MATCHES_COUNTED && !takeStarOf(*begin))
                    return false;
            }
            const auto inVain = std::count_if(uncounted.begin(), uncounted.end(),
                                              [this](Position song) { return m_removed.isRemoved(song); });
            const bool areMany = static_cast<std::size_t>(inVain) > uncounted.size() / 8;
            batchSize = std::clamp(areMany ? batchSize / 2 : batchSize * 2, LEAST_BATCH, LARGEST_BATCH);
        }
        return true;
    }

    /// @return false if it was stopped
    bool countTogether(std::span<const Position> songs)
    {
        const std::size_t partSize =
            std::clamp<std::size_t>(songs.size() / (4 * computingThreads()), 1, MOST_COUNTED_TOGETHER);
        const auto count = [&](FurtherMatches &matches, std::size_t part) {
            const auto some =
                songs.subspan(part * partSize, std::min(partSize, songs.size() - part * partSize));
            matches.forEachMatches(
                some, MOST_MATCHES_COUNTED,
                [&](std::size_t i, std::span<const Position> found) { setCount(some[i], found); });
        };
        return countInParallel((songs.size() + partSize - 1) / partSize, 1, count);
    }

    bool takeCentresOfFewer()
    {
        const std::vector<Position> centres = centresOfFewer();
        for (std::size_t i = 0; i < centres.size(); ++i) {
            if (i % SONGS_PER_REPORT == 0)
                m_takingFew.set(static_cast<double>(i) / static_cast<double>(centres.size()));
            if (!takeStarOf(centres[i]))
                return false;
        }
        return !m_stop.stop_requested();
    }

    /// The songs that match at least MOST_MATCHES_COUNTED others or are not counted yet, in the order of the
    /// list.
    [[nodiscard]] std::vector<Position> songsOfMost() const
    {
        const FurtherSongs &prepared = m_index.songs();
        std::vector<Position> songs;
        for (Position song = 0; song < prepared.size(); ++song) {
            if (!m_counts.isCounted(song) || m_counts[song] >= MOST_MATCHES_COUNTED)
                songs.push_back(song);
        }
        std::sort(songs.begin(), songs.end(),
                  [&](Position a, Position b) { return prepared[a].index < prepared[b].index; });
        return songs;
    }

    /// The other songs that are left and match another one: most matches first, then in the order of the
    /// list.
    [[nodiscard]] std::vector<Position> centresOfFewer() const
    {
        const FurtherSongs &prepared = m_index.songs();
        std::vector<Position> centres;
        for (Position song = 0; song < prepared.size(); ++song) {
            if (m_counts[song] > 0 && m_counts[song] < MOST_MATCHES_COUNTED && !m_removed.isRemoved(song))
                centres.push_back(song);
        }
        std::sort(centres.begin(), centres.end(), [&](Position a, Position b) {
            return m_counts[a] != m_counts[b] ? m_counts[a] > m_counts[b]
                                              : prepared[a].index < prepared[b].index;
        });
        return centres;
    }

    /// @return false if it was stopped
    bool takeStarOf(Position centre)
    {
        if (m_removed.isRemoved(centre))
            return true;
        if (m_stop.stop_requested())
            return false;
        Star star = starOf(m_songs, m_index.songs(), centre, m_counts.matchesOf(centre, m_removed));
        if (star.size() < 2)
            return true;
        for (const Position song : star) {
            m_removed.remove(song);
            m_index.remove(song);
        }
        m_stars.push_back(std::move(star));
        return true;
    }

    /// Calls `count(matches, i)` for each i below `songs` on all cores; each thread has FurtherMatches of its
    /// own, of which nothing is removed.
    /// @return false if it was stopped
    template <typename Count>
    bool countInParallel(std::size_t songs, std::size_t partSize, Count count)
    {
        const auto countersOf = [this](std::size_t thread) {
            std::optional<FurtherMatches> &matches = m_counters[thread];
            if (!matches)
                matches.emplace(m_index);
            return &*matches;
        };
        return forEachInParallel(songs, partSize, m_stop, countersOf,
                                 [&](FurtherMatches *matches, std::size_t i) { count(*matches, i); });
    }

    void setCount(Position song, std::span<const Position> matches)
    {
        m_counts.set(song, matches);
        const std::size_t counted = ++m_counted;
        if (counted % SONGS_PER_REPORT == 0)
            m_counting.set(static_cast<double>(counted) / static_cast<double>(m_counts.size()));
    }

    const QList<Song> &m_songs;
    FurtherIndex &m_index;
    const std::stop_token &m_stop;
    const Progress m_counting;
    const Progress m_takingFew;
    MatchCounts m_counts;
    std::atomic<std::size_t> m_counted = 0;
    FurtherMatches m_removed;
    std::vector<std::optional<FurtherMatches>> m_counters;
    std::vector<Star> m_stars;
};

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
    FurtherIndex index(prepared, stop);
    if (stop.stop_requested())
        return std::nullopt;
    std::optional<std::vector<Star>> stars = StarSearch(songs, index, stop, reportProgress).run();
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
