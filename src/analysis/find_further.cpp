#include "analysis/find_further.h"

#include "analysis/further_matches.h"
#include "analysis/further_songs.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

namespace sonavo {
namespace {

using Position = FurtherSongs::Position;
/// A centre and the songs that match it, in the order of the list.
using Star = std::vector<Position>;

/// Songs between two looks at the stop token.
constexpr std::size_t SONGS_PER_REPORT = 1024;

/// How much of the work is done after each part of it, as measured on large libraries.
constexpr double AFTER_PREPARING = 0.25;
constexpr double AFTER_INDEXING = 0.4;
constexpr double AFTER_COUNTING = 0.9;

/// Calls `step` with every number below `count` in turn.
/// @return whether it was not stopped
template <typename Step>
bool forEachUpTo(std::size_t count, double from, double to, const std::stop_token &stop,
                 const FurtherProgressSink &reportProgress, Step step)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (i % SONGS_PER_REPORT == 0) {
            if (stop.stop_requested())
                return false;
            reportProgress(from + (to - from) * static_cast<double>(i) / static_cast<double>(count));
        }
        step(i);
    }
    return !stop.stop_requested();
}

/// How many others each song matches, and which, where they are few.
class MatchCounts
{
public:
    explicit MatchCounts(std::size_t songs) { m_songs.resize(songs); }

    void set(Position song, std::span<const Position> matches)
    {
        m_songs[song] = {m_kept.size(), matches.size()};
        if (matches.size() <= MOST_MATCHES_KEPT)
            m_kept.insert(m_kept.end(), matches.begin(), matches.end());
    }

    [[nodiscard]] std::size_t operator[](Position song) const { return m_songs[song].count; }

    /// All that match a song and are not removed, in no particular order.
    [[nodiscard]] std::vector<Position> matchesOf(Position song, FurtherMatches &matches) const
    {
        const auto [begin, count] = m_songs[song];
        if (count > MOST_MATCHES_KEPT) {
            const auto found = matches.matchesOf(song, std::numeric_limits<std::size_t>::max());
            return {found.begin(), found.end()};
        }
        std::vector<Position> found;
        for (const Position match : std::span(m_kept).subspan(begin, count)) {
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
        /// The song's part of m_kept.
        std::size_t begin = 0;
        std::size_t count = 0;
    };

    std::vector<Entry> m_songs;
    std::vector<Position> m_kept;
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
    const auto isStranger = [&](Position song) {
        return !songsMatchFurther(prepared, first, prepared[song]);
    };
    star.erase(std::remove_if(star.begin() + 1, star.end(), isStranger), star.end());
    return star;
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
    FurtherMatches matches(prepared);

    MatchCounts counts(prepared.size());
    std::vector<Position> centres;
    const auto count = [&](std::size_t i) {
        const auto song = static_cast<Position>(i);
        counts.set(song, matches.matchesOf(song, MOST_MATCHES_COUNTED));
        if (counts[song] > 0)
            centres.push_back(song);
    };
    if (!forEachUpTo(prepared.size(), AFTER_INDEXING, AFTER_COUNTING, stop, reportProgress, count))
        return std::nullopt;
    std::sort(centres.begin(), centres.end(), [&](Position a, Position b) {
        return counts[a] != counts[b] ? counts[a] > counts[b] : prepared[a].index < prepared[b].index;
    });

    std::vector<Star> stars;
    const auto makeStar = [&](std::size_t i) {
        if (matches.isRemoved(centres[i]))
            return;
        Star star = starOf(songs, prepared, centres[i], counts.matchesOf(centres[i], matches));
        if (star.size() < 2)
            return;
        for (const Position song : star)
            matches.remove(song);
        stars.push_back(std::move(star));
    };
    if (!forEachUpTo(centres.size(), AFTER_COUNTING, 1.0, stop, reportProgress, makeStar))
        return std::nullopt;
    reportProgress(1.0);
    return groupsOf(songs, prepared, std::move(stars));
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
