#pragma once

#include "ui/results/duplicate_list_model.h"

#include <QStringList>

#include <functional>

namespace sonavo {

/// The rows of the results as the model has them: a header's title, a song's path.
inline QStringList rowsOf(const DuplicateListModel &model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QVariant song = model.songAt(row);
        rows.append(song.isValid() ? song.value<Song>().path
                                   : model.data(model.index(row), DuplicateListModel::TitleRole).toString());
    }
    return rows;
}

/// The rows as they should be.
/// @param isExpanded given a group and the row of its header
inline QStringList expectedRows(const QList<DuplicateGroup> &groups,
                                const std::function<bool(const DuplicateGroup &, int)> &isExpanded)
{
    QStringList rows;
    for (const DuplicateGroup &group : groups) {
        if (group.duplicates.isEmpty())
            continue;
        rows.append(QStringLiteral("Group of %1 songs").arg(group.duplicates.size() + 1));
        if (!isExpanded(group, static_cast<int>(rows.size()) - 1))
            continue;
        rows.append(group.original.path);
        for (const Song &duplicate : group.duplicates)
            rows.append(duplicate.path);
    }
    return rows;
}

} // namespace sonavo
