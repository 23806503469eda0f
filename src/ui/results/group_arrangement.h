#pragma once

#include "model/duplicate_group.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <stop_token>

namespace sonavo {

/// In which order the list shows groups; for the views.
namespace GroupOrder {
Q_NAMESPACE
QML_ELEMENT

enum class Order
{
    /// As the analysis made them.
    AsFound,
    /// The ones first whose duplicates take the most space.
    Freed,
    /// By the name of the original.
    Name,
    /// By the folder of the original.
    Folder
};
Q_ENUM_NS(Order)
} // namespace GroupOrder

/// Which groups the list shows, and in which order.
struct GroupArrangement
{
    GroupOrder::Order order = GroupOrder::Order::AsFound;
    /// Only groups with a song whose name and folder contain each of these words, in any case; empty shows
    /// all.
    QString filter;

    /// Whether it leaves every list as it is.
    [[nodiscard]] bool isIdentity() const;

    friend bool operator==(const GroupArrangement &, const GroupArrangement &) = default;
};

struct ArrangedGroups
{
    QList<DuplicateGroup> groups;
    /// In groups that the filter leaves out.
    int hiddenDuplicates = 0;
};

/// Filters and sorts groups; equal ones keep their order. Takes O(n log n) time; any thread may call it.
/// @param stop ends it early
/// @return nothing when it was stopped
[[nodiscard]] std::optional<ArrangedGroups>
arranged(QList<DuplicateGroup> groups, const GroupArrangement &arrangement, const std::stop_token &stop);

} // namespace sonavo
