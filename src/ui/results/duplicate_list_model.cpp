#include "ui/results/duplicate_list_model.h"

#include "model/byte_count.h"
#include "theme/palette.h"

#include <algorithm>

namespace sonavo {
namespace {

QList<DuplicateGroup> groupsWithDuplicates(QList<DuplicateGroup> groups)
{
    groups.removeIf([](const DuplicateGroup &group) { return group.duplicates.isEmpty(); });
    return groups;
}

/// Songs with the same id are equal: a session never changes a song.
bool haveSameSongs(const DuplicateGroup &a, const DuplicateGroup &b)
{
    const auto haveSameId = [](const Song &first, const Song &second) { return first.id == second.id; };
    return a.id == b.id && a.original.id == b.original.id &&
           (a.duplicates.isSharedWith(b.duplicates) ||
            std::equal(a.duplicates.begin(), a.duplicates.end(), b.duplicates.begin(), b.duplicates.end(),
                       haveSameId));
}

QString badgeText(bool isOriginal)
{
    return isOriginal ? DuplicateListModel::tr("Original") : DuplicateListModel::tr("Duplicate");
}

} // namespace

void DuplicateListModel::setViewModel(DuplicateViewModel *viewModel)
{
    if (m_viewModel == viewModel)
        return;
    if (m_viewModel)
        m_viewModel->disconnect(this);
    m_viewModel = viewModel;
    if (viewModel) {
        connect(viewModel, &DuplicateViewModel::duplicateGroupsChanged, this,
                &DuplicateListModel::updateGroups);
        connect(viewModel, &DuplicateViewModel::currentlyPlayingSongChanged, this,
                &DuplicateListModel::updatePlaying);
        updatePlaying();
        updateGroups();
    }
    Q_EMIT viewModelChanged();
}

int DuplicateListModel::count() const
{
    return m_headerRows.back();
}

int DuplicateListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QHash<int, QByteArray> DuplicateListModel::roleNames() const
{
    return {
        {KindRole, "kind"},           {TintRole, "tint"},
        {TitleRole, "title"},         {IsExpandedRole, "isExpanded"},
        {SongRole, "song"},           {IsOriginalRole, "isOriginal"},
        {IsPlayingRole, "isPlaying"}, {DurationRole, "duration"},
        {SizeRole, "size"},           {DescriptionRole, "description"},
    };
}

QVariant DuplicateListModel::data(const QModelIndex &index, int role) const
{
    const std::optional<Entry> entry = entryAt(index.isValid() ? index.row() : -1);
    if (!entry)
        return {};
    if (role == TintRole)
        return groupAt(entry->group).color;
    return entry->member ? songData(*entry, role) : groupData(entry->group, role);
}

QVariant DuplicateListModel::groupData(std::size_t group, int role) const
{
    switch (role) {
    case KindRole:
        return QStringLiteral("header");
    case TitleRole:
    case DescriptionRole:
        return tr("Group of %1 songs").arg(groupAt(group).duplicates.size() + 1);
    case IsExpandedRole:
        return !isCollapsed(group);
    default:
        return {};
    }
}

QVariant DuplicateListModel::songData(const Entry &entry, int role) const
{
    const Song &song = songOf(entry);
    const bool isOriginal = *entry.member == 0;
    switch (role) {
    case KindRole:
        return QStringLiteral("song");
    case SongRole:
        return QVariant::fromValue(song);
    case IsOriginalRole:
        return isOriginal;
    case IsPlayingRole:
        return song.id == m_playingId;
    case DurationRole:
        return song.formattedDuration();
    case SizeRole:
        return formattedByteCount(song.size);
    case DescriptionRole:
        return QStringList{
            badgeText(isOriginal),         song.name,      song.fileType, song.formattedDuration(),
            formattedByteCount(song.size), song.folderName}
            .join(QStringLiteral(", "));
    default:
        return {};
    }
}

int DuplicateListModel::headerRow(int row) const
{
    const std::optional<Entry> entry = entryAt(row);
    return entry ? m_headerRows[entry->group] : -1;
}

bool DuplicateListModel::isExpanded(int row) const
{
    const std::optional<Entry> entry = entryAt(row);
    return entry && !isCollapsed(entry->group);
}

void DuplicateListModel::setExpanded(int row, bool isExpanded)
{
    const std::optional<Entry> entry = entryAt(row);
    if (!entry || isExpanded != isCollapsed(entry->group))
        return;
    const int header = m_headerRows[entry->group];
    const DuplicateGroup &group = groupAt(entry->group);
    const int first = header + 1;
    const int last = header + 1 + static_cast<int>(group.duplicates.size());
    if (isExpanded) {
        beginInsertRows({}, first, last);
        m_collapsed.remove(group.id);
        updateHeaderRows(entry->group);
        endInsertRows();
    } else {
        beginRemoveRows({}, first, last);
        m_collapsed.insert(group.id);
        updateHeaderRows(entry->group);
        endRemoveRows();
    }
    Q_EMIT dataChanged(index(header), index(header), {IsExpandedRole});
    Q_EMIT countChanged();
}

QVariant DuplicateListModel::songAt(int row) const
{
    const std::optional<Entry> entry = entryAt(row);
    return entry && entry->member ? QVariant::fromValue(songOf(*entry)) : QVariant();
}

std::optional<DuplicateListModel::Entry> DuplicateListModel::entryAt(int row) const
{
    if (row < 0 || row >= count())
        return std::nullopt;
    const auto next = std::upper_bound(m_headerRows.begin(), m_headerRows.end(), row);
    const auto group = static_cast<std::size_t>(next - m_headerRows.begin()) - 1;
    const int offset = row - m_headerRows[group];
    return Entry{group, offset == 0 ? std::nullopt : std::optional<qsizetype>(offset - 1)};
}

const DuplicateGroup &DuplicateListModel::groupAt(std::size_t group) const
{
    return m_groups.at(static_cast<qsizetype>(group));
}

const Song &DuplicateListModel::songOf(const Entry &entry) const
{
    const DuplicateGroup &group = groupAt(entry.group);
    return *entry.member == 0 ? group.original : group.duplicates.at(*entry.member - 1);
}

bool DuplicateListModel::isCollapsed(std::size_t group) const
{
    return !m_collapsed.isEmpty() && m_collapsed.contains(groupAt(group).id);
}

int DuplicateListModel::rowCountOf(std::size_t group) const
{
    return isCollapsed(group) ? 1 : 2 + static_cast<int>(groupAt(group).duplicates.size());
}

void DuplicateListModel::updateHeaderRows(std::size_t group)
{
    m_headerRows.resize(static_cast<std::size_t>(m_groups.size()) + 1);
    for (std::size_t i = group; i + 1 < m_headerRows.size(); ++i)
        m_headerRows[i + 1] = m_headerRows[i] + rowCountOf(i);
}

void DuplicateListModel::updateGroups()
{
    const QList<DuplicateGroup> groups = groupsWithDuplicates(m_viewModel->duplicateGroups());
    const auto [oldGroup, newGroup] =
        std::mismatch(m_groups.cbegin(), m_groups.cend(), groups.cbegin(), groups.cend(), haveSameSongs);
    if (oldGroup == m_groups.cend() && newGroup == groups.cend())
        return;
    const auto position = static_cast<std::size_t>(oldGroup - m_groups.cbegin());
    const bool isSameSize = m_groups.size() == groups.size();
    const bool isOneFewer = m_groups.size() == groups.size() + 1;
    if (isSameSize && oldGroup->id == newGroup->id &&
        std::equal(oldGroup + 1, m_groups.cend(), newGroup + 1, groups.cend(), haveSameSongs))
        updateGroup(position, *newGroup);
    else if (isOneFewer && !groups.isEmpty() &&
             std::equal(oldGroup + 1, m_groups.cend(), newGroup, groups.cend(), haveSameSongs))
        removeGroup(position);
    else
        reset(groups);
}

void DuplicateListModel::removeGroup(std::size_t group)
{
    beginRemoveRows({}, m_headerRows[group], m_headerRows[group + 1] - 1);
    m_collapsed.remove(groupAt(group).id);
    m_groups.removeAt(static_cast<qsizetype>(group));
    updateHeaderRows(group);
    endRemoveRows();
    Q_EMIT countChanged();
}

void DuplicateListModel::updateGroup(std::size_t group, const DuplicateGroup &changed)
{
    const QList<Song> before = membersOf(groupAt(group));
    const QList<Song> after = membersOf(changed);
    const auto haveSameId = [](const Song &a, const Song &b) { return a.id == b.id; };
    const auto [removed, kept] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), haveSameId);
    const bool isOneRemoved = before.size() == after.size() + 1 &&
                              std::equal(removed + 1, before.end(), kept, after.end(), haveSameId);
    if (!isOneRemoved) {
        reset(groupsWithDuplicates(m_viewModel->duplicateGroups()));
        return;
    }

    const int header = m_headerRows[group];
    const int row = header + 1 + static_cast<int>(removed - before.begin());
    const bool isShown = !isCollapsed(group);
    if (isShown)
        beginRemoveRows({}, row, row);
    m_groups[static_cast<qsizetype>(group)] = changed;
    updateHeaderRows(group);
    if (isShown)
        endRemoveRows();
    Q_EMIT dataChanged(index(header), index(header), {TitleRole, DescriptionRole});
    if (isShown && row == header + 1)
        Q_EMIT dataChanged(index(row), index(row), {IsOriginalRole, DescriptionRole});
    Q_EMIT countChanged();
}

void DuplicateListModel::reset(const QList<DuplicateGroup> &groups)
{
    beginResetModel();
    m_groups = groups;
    m_collapsed.clear();
    updateHeaderRows(0);
    endResetModel();
    Q_EMIT countChanged();
}

void DuplicateListModel::updatePlaying()
{
    const std::optional<Song> &song = m_viewModel->currentlyPlayingSong();
    const QUuid before = std::exchange(m_playingId, song ? song->id : QUuid());
    emitPlayingChanged(before);
    emitPlayingChanged(m_playingId);
}

void DuplicateListModel::emitPlayingChanged(const QUuid &songId)
{
    if (songId.isNull())
        return;
    for (std::size_t i = 0; i + 1 < m_headerRows.size(); ++i) {
        if (isCollapsed(i))
            continue;
        const DuplicateGroup &group = groupAt(i);
        qsizetype member = group.original.id == songId ? 0 : -1;
        for (qsizetype d = 0; member < 0 && d < group.duplicates.size(); ++d)
            member = group.duplicates.at(d).id == songId ? d + 1 : -1;
        if (member >= 0) {
            const QModelIndex row = index(m_headerRows[i] + 1 + static_cast<int>(member));
            Q_EMIT dataChanged(row, row, {IsPlayingRole});
        }
    }
}

} // namespace sonavo
