#include "analysis/find_further.h"

#include "analysis/further_matches.h"
#include "analysis/further_songs.h"
#include "analysis/parallel.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <atomic>
#include <limits>
#include <memory>
#include <numeric>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using Position = FurtherSongs::Position;
/// A centre and the songs that match it, in the order of the list.
using Star = std::vector<Position>;

/// Songs or centres from one report to the next.
constexpr std::size_t SONGS_PER_REPORT = 64;
constexpr std::size_t CENTRES_PER_REPORT = 128;

/// How much of the work is done after each part of it, as measured on large libraries.
constexpr double AFTER_PREPARING = 0.4;
constexpr double AFTER_INDEXING = 0.6;
constexpr double AFTER_COUNTING = 0.95;

/// How many others each song matches, and which, as far as that needs little memory.
class MatchCounts
{
public:
    explicit MatchCounts(std::size_t songs)
        : m_songs(songs)
        , m_capacity(std::min<std::size_t>(KEPT_PER_SONG * songs, NONE))
        , m_kept(std::make_unique_for_overwrite<Position[]>(m_capacity))
    {}

    /// Threads may set different songs at the same time.
    /// @param matches all, or MOST_MATCHES_COUNTED of them
    void set(Position song, std::span<const Position> matches)
    {
        Entry &entry = m_songs[song];
        entry.count = static_cast<std::uint32_t>(matches.size());
        if (matches.size() >= MOST_MATCHES_COUNTED)
            return;
        const std::size_t first = m_keptCount.fetch_add(matches.size());
        if (first + matches.size() > m_capacity)
            return;
        std::copy(matches.begin(), matches.end(), m_kept.get() + first);
        entry.first = static_cast<std::uint32_t>(first);
    }

    [[nodiscard]] std::size_t size() const { return m_songs.size(); }
    [[nodiscard]] bool isCounted(Position song) const { return m_songs[song].count != NONE; }
    /// 0 where they are not counted.
    [[nodiscard]] std::size_t operator[](Position song) const
    {
        return isCounted(song) ? m_songs[song].count : 0;
    }

    /// All that match a song, in no particular order, or nothing if they have to be looked for again.
    [[nodiscard]] std::optional<std::span<const Position>> matchesOf(Position song) const
    {
        const Entry &entry = m_songs[song];
        if (entry.first == NONE)
            return std::nullopt;
        return std::span<const Position>(m_kept.get() + entry.first, entry.count);
    }

private:
    /// On average. Limits memory, not what is found. Memory that is not written to is not used.
    static constexpr std::size_t KEPT_PER_SONG = 16;
    static constexpr std::uint32_t NONE = UINT32_MAX;

    struct Entry
    {
        std::uint32_t count = NONE;
        /// In m_kept.
        std::uint32_t first = NONE;
    };

    std::vector<Entry> m_songs;
    const std::size_t m_capacity;
    const std::unique_ptr<Position[]> m_kept;
    std::atomic<std::size_t> m_keptCount = 0;
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
        , m_matches(computingThreads())
    {}

    /// @return nothing if it was stopped; every song is in at most one star
    std::optional<std::vector<Star>> run()
    {
        if (!countCheapSongs() || !takeCentresOfMost() || !takeCentresOfFewer())
            return std::nullopt;
        return std::move(m_stars);
    }

private:
    /// How many songs are looked up at a time, some of them in vain, since a star before them takes them.
    class BatchSize
    {
    public:
        explicit BatchSize(std::size_t least)
            : m_least(least)
            , m_size(least)
        {}
        [[nodiscard]] std::size_t get() const { return m_size; }
        /// @param inVain how many of a batch were
        void adapt(std::size_t inVain, std::size_t songs)
        {
            m_size = std::clamp(inVain > songs / 8 ? m_size / 2 : m_size * 2, m_least, LARGEST);
        }

    private:
        static constexpr std::size_t LARGEST = 4096;

        std::size_t m_least;
        std::size_t m_size;
    };
    static constexpr std::size_t LEAST_COUNTED = 64;
    static constexpr std::size_t LEAST_CENTRES = 2;
    /// If more songs than this are expensive to count, another index pays off.
    static constexpr std::size_t MANY_EXPENSIVE = 1024;
    /// By one thread.
    static constexpr std::size_t MOST_TOGETHER = 64;

    bool countCheapSongs()
    {
        // Songs of one artist, or of one window, in a row, so that what is read of them stays in the
        // processor's caches.
        std::vector<Position> songs = m_index.artists().songs();
        if (areTextsWorthwhile()) {
            m_index.placeTexts(m_stop);
            std::iota(songs.begin(), songs.end(), Position{0});
        }
        const std::size_t partCount = (songs.size() + MOST_TOGETHER - 1) / MOST_TOGETHER;
        return findInParallel(partCount, 1, [&](FurtherMatches &matches, std::size_t part) {
            const std::size_t begin = part * MOST_TOGETHER;
            const auto some = std::span(songs).subspan(begin, std::min(MOST_TOGETHER, songs.size() - begin));
            matches.forEachCheapMatches(
                some, MOST_MATCHES_COUNTED,
                [&](std::size_t i, std::span<const Position> found) { setCount(some[i], found); });
        });
    }

    /// Whether so many songs of unlike texts would be compared that indexing the texts takes less time.
    bool areTextsWorthwhile()
    {
        constexpr std::size_t SAMPLES = 256;
        constexpr std::size_t MANY_COMPARED = 64;
        const std::size_t count = m_index.songs().size();
        if (count < SAMPLES)
            return false;
        FurtherMatches matches(m_index);
        std::size_t cost = 0;
        for (std::size_t i = 0; i < SAMPLES; ++i) {
            const auto song = static_cast<Position>(i * count / SAMPLES);
            if (m_index.songs()[song].wholeLength <= LONGEST_PLACED)
                cost += matches.comparedInWindow(song);
        }
        return cost > MANY_COMPARED * SAMPLES;
    }

    bool takeCentresOfMost()
    {
        const std::vector<Position> songs = songsOfMost();
        const auto expensive = std::count_if(songs.begin(), songs.end(),
                                             [this](Position song) { return !m_counts.isCounted(song); });
        if (static_cast<std::size_t>(expensive) >= MANY_EXPENSIVE && m_index.byTextLength().empty())
            m_index.placeTexts(m_stop);
        BatchSize batchSize(LEAST_COUNTED);
        for (auto begin = songs.begin(); begin != songs.end();) {
            std::vector<Position> uncounted;
            auto end = begin;
            for (; end != songs.end() && uncounted.size() < batchSize.get(); ++end) {
                if (!m_index.isRemoved(*end) && !m_counts.isCounted(*end))
                    uncounted.push_back(*end);
            }
            const auto count = [&](std::size_t i, std::span<const Position> found) {
                setCount(uncounted[i], found);
            };
            if (!findTogether(uncounted, MOST_MATCHES_COUNTED, FurtherMatches::Removed::Included, count))
                return false;
            std::vector<Position> centres;
            std::copy_if(begin, end, std::back_inserter(centres),
                         [this](Position song) { return m_counts[song] >= MOST_MATCHES_COUNTED; });
            if (!takeStarsOf(centres, [](double) {}))
                return false;
            batchSize.adapt(countRemoved(uncounted), uncounted.size());
            begin = end;
        }
        return true;
    }

    bool takeCentresOfFewer()
    {
        return takeStarsOf(centresOfFewer(), [this](double fraction) { m_takingFew.set(fraction); });
    }

    /// Takes the stars of those centres that no star before them takes.
    /// @param report called with how much is done
    /// @return false if it was stopped
    template <typename Report>
    bool takeStarsOf(std::span<const Position> centres, Report report)
    {
        for (std::size_t begin = 0; begin < centres.size();) {
            report(static_cast<double>(begin) / static_cast<double>(centres.size()));
            std::vector<Position> asked;
            std::size_t end = begin;
            const std::size_t last = std::min(begin + CENTRES_PER_REPORT, centres.size());
            for (; end < last && asked.size() < m_centresAtATime.get(); ++end) {
                if (!m_index.isRemoved(centres[end]) && !m_counts.matchesOf(centres[end]))
                    asked.push_back(centres[end]);
            }
            std::vector<std::vector<Position>> found(asked.size());
            const auto keep = [&](std::size_t i, std::span<const Position> matches) {
                found[i].assign(matches.begin(), matches.end());
            };
            if (!findTogether(asked, std::numeric_limits<std::size_t>::max(),
                              FurtherMatches::Removed::LeftOut, keep))
                return false;
            std::size_t next = 0;
            std::size_t inVain = 0;
            for (; begin < end; ++begin) {
                const bool isAsked = next < asked.size() && asked[next] == centres[begin];
                const bool isTaken = m_index.isRemoved(centres[begin]);
                inVain += isAsked && isTaken ? 1U : 0U;
                if (!isTaken)
                    takeStarOf(centres[begin], isAsked ? found[next] : *m_counts.matchesOf(centres[begin]));
                next += isAsked ? 1U : 0U;
            }
            m_centresAtATime.adapt(inVain, asked.size());
        }
        return !m_stop.stop_requested();
    }

    /// Calls `visit` with what matches each song, as FurtherMatches::forEachMatches() does, on all cores.
    /// @return false if it was stopped
    template <typename Visit>
    bool findTogether(std::span<const Position> songs, std::size_t most, FurtherMatches::Removed removed,
                      Visit visit)
    {
        const std::size_t partSize =
            std::clamp<std::size_t>(songs.size() / computingThreads(), 1, MOST_TOGETHER);
        const auto find = [&](FurtherMatches &matches, std::size_t part) {
            const std::size_t begin = part * partSize;
            const auto some = songs.subspan(begin, std::min(partSize, songs.size() - begin));
            matches.forEachMatches(some, most, removed, [&](std::size_t i, std::span<const Position> found) {
                visit(begin + i, found);
            });
        };
        return findInParallel((songs.size() + partSize - 1) / partSize, 1, find);
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
            if (m_counts[song] > 0 && m_counts[song] < MOST_MATCHES_COUNTED && !m_index.isRemoved(song))
                centres.push_back(song);
        }
        std::sort(centres.begin(), centres.end(), [&](Position a, Position b) {
            return m_counts[a] != m_counts[b] ? m_counts[a] > m_counts[b]
                                              : prepared[a].index < prepared[b].index;
        });
        return centres;
    }

    /// @param matches of the centre; some of them can have been taken
    void takeStarOf(Position centre, std::span<const Position> matches)
    {
        Star left;
        std::copy_if(matches.begin(), matches.end(), std::back_inserter(left),
                     [this](Position song) { return !m_index.isRemoved(song); });
        Star star = starOf(m_songs, m_index.songs(), centre, std::move(left));
        if (star.size() < 2)
            return;
        for (const Position song : star)
            m_index.remove(song);
        m_stars.push_back(std::move(star));
    }

    [[nodiscard]] std::size_t countRemoved(std::span<const Position> songs) const
    {
        const auto count = std::count_if(songs.begin(), songs.end(),
                                         [this](Position song) { return m_index.isRemoved(song); });
        return static_cast<std::size_t>(count);
    }

    /// Calls `find(matches, i)` for each i below `count` on all cores; each thread has FurtherMatches of its
    /// own.
    /// @return false if it was stopped
    template <typename Find>
    bool findInParallel(std::size_t count, std::size_t partSize, Find find)
    {
        const auto matchesOf = [this](std::size_t thread) {
            std::optional<FurtherMatches> &matches = m_matches[thread];
            if (!matches)
                matches.emplace(m_index);
            return &*matches;
        };
        return forEachInParallel(count, partSize, m_stop, matchesOf,
                                 [&](FurtherMatches *matches, std::size_t i) { find(*matches, i); });
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
    BatchSize m_centresAtATime{LEAST_CENTRES};
    /// By thread.
    std::vector<std::optional<FurtherMatches>> m_matches;
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
