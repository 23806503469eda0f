#include "ui/results/group_arrangement.h"

#include "ui/results/group_texts.h"

#include <QCollator>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using GroupOrder::Order;

/// The same letter can be written as one character or as several.
QString composed(const QString &text)
{
    const bool isAscii = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
    return isAscii ? text : text.normalized(QString::NormalizationForm_C);
}

bool containsAll(const Song &song, const QStringList &words)
{
    const QString path = composed(song.path);
    return std::all_of(words.cbegin(), words.cend(),
                       [&path](const QString &word) { return path.contains(word, Qt::CaseInsensitive); });
}

bool containsAll(const DuplicateGroup &group, const QStringList &words)
{
    return containsAll(group.original, words) ||
           std::any_of(group.duplicates.cbegin(), group.duplicates.cend(),
                       [&words](const Song &song) { return containsAll(song, words); });
}

/// @param keyOf computed once for each group
template <typename KeyOf, typename Less = std::less<>>
QList<DuplicateGroup> sortedBy(const QList<DuplicateGroup> &groups, const KeyOf &keyOf, const Less &less = {})
{
    using Key = std::invoke_result_t<KeyOf, const DuplicateGroup &>;
    std::vector<std::pair<Key, qsizetype>> keys;
    keys.reserve(static_cast<std::size_t>(groups.size()));
    for (qsizetype i = 0; i < groups.size(); ++i)
        keys.emplace_back(keyOf(groups.at(i)), i);
    std::stable_sort(keys.begin(), keys.end(),
                     [&less](const auto &a, const auto &b) { return less(a.first, b.first); });
    QList<DuplicateGroup> sorted;
    sorted.reserve(groups.size());
    for (const auto &key : keys)
        sorted.append(groups.at(key.second));
    return sorted;
}

QList<DuplicateGroup> sorted(const QList<DuplicateGroup> &groups, Order order)
{
    if (order == Order::AsFound)
        return groups;
    if (order == Order::Freed)
        return sortedBy(groups, freedBytes, std::greater<>());
    // Without a language, letters would be ordered by their codes.
    const QLocale locale = QLocale::system().collation();
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return sortedBy(groups, [&collator, order](const DuplicateGroup &group) {
        const Song &song = group.original;
        return collator.sortKey(order == Order::Name ? song.name : song.path.chopped(song.name.size()));
    });
}

} // namespace

bool GroupArrangement::isIdentity() const
{
    return order == GroupOrder::Order::AsFound && filter.trimmed().isEmpty();
}

std::optional<ArrangedGroups> arranged(QList<DuplicateGroup> groups, const GroupArrangement &arrangement,
                                       const std::stop_token &stop)
{
    const int all = totalsOf(groups).count;
    const QStringList words = composed(arrangement.filter).simplified().split(u' ', Qt::SkipEmptyParts);
    if (!words.isEmpty()) {
        groups.removeIf(
            [&](const DuplicateGroup &group) { return stop.stop_requested() || !containsAll(group, words); });
    }
    if (stop.stop_requested())
        return std::nullopt;
    const int hidden = all - totalsOf(groups).count;
    return ArrangedGroups{sorted(groups, arrangement.order), hidden};
}

} // namespace sonavo
