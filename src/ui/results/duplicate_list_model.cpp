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

/// Whether a group has the same songs; those of one session never change otherwise.
bool haveSameSongs(const DuplicateGroup &a, const DuplicateGroup &b)
{
    const auto haveSameId = [](const Song &first, const Song &second) { return first.id == second.id; };
    return a.id == b.id && a.original.id == b.original.id &&
           (a.duplicates.isSharedWith(b.duplicates) ||
            std::equal(a.duplicates.begin(), a.duplicates.end(), b.duplicates.begin(), b.duplicates.end(),
                       haveSameId));
}

QString badgeOf(bool isOriginal)
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
                &DuplicateListModel::followGroups);
        connect(viewModel, &DuplicateViewModel::currentlyPlayingSongChanged, this,
                &DuplicateListModel::followPlaying);
        followPlaying();
        followGroups();
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
    const std::optional<Place> place = placeOf(index.isValid() ? index.row() : -1);
    if (!place)
        return {};
    if (role == TintRole)
        return groupAt(place->group).color;
    return place->member ? songValue(*place, role) : headerValue(place->group, role);
}

QVariant DuplicateListModel::headerValue(std::size_t group, int role) const
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

QVariant DuplicateListModel::songValue(const Place &place, int role) const
{
    const Song &song = songAt(place);
    const bool isOriginal = *place.member == 0;
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
            badgeOf(isOriginal),           song.name,      song.fileType, song.formattedDuration(),
            formattedByteCount(song.size), song.folderName}
            .join(QStringLiteral(", "));
    default:
        return {};
    }
}

int DuplicateListModel::headerRow(int row) const
{
    const std::optional<Place> place = placeOf(row);
    return place ? m_headerRows[place->group] : -1;
}

bool DuplicateListModel::isExpanded(int row) const
{
    const std::optional<Place> place = placeOf(row);
    return place && !isCollapsed(place->group);
}

void DuplicateListModel::setExpanded(int row, bool isExpanded)
{
    const std::optional<Place> place = placeOf(row);
    if (!place || isExpanded != isCollapsed(place->group))
        return;
    const int header = m_headerRows[place->group];
    const DuplicateGroup &group = groupAt(place->group);
    const int first = header + 1;
    const int last = header + 1 + static_cast<int>(group.duplicates.size());
    if (isExpanded) {
        beginInsertRows({}, first, last);
        m_collapsed.remove(group.id);
        placeRowsFrom(place->group);
        endInsertRows();
    } else {
        beginRemoveRows({}, first, last);
        m_collapsed.insert(group.id);
        placeRowsFrom(place->group);
        endRemoveRows();
    }
    Q_EMIT dataChanged(index(header), index(header), {IsExpandedRole});
    Q_EMIT countChanged();
}

QVariant DuplicateListModel::songAt(int row) const
{
    const std::optional<Place> place = placeOf(row);
    return place && place->member ? QVariant::fromValue(songAt(*place)) : QVariant();
}

std::optional<DuplicateListModel::Place> DuplicateListModel::placeOf(int row) const
{
    if (row < 0 || row >= count())
        return std::nullopt;
    const auto next = std::upper_bound(m_headerRows.begin(), m_headerRows.end(), row);
    const auto group = static_cast<std::size_t>(next - m_headerRows.begin()) - 1;
    const int offset = row - m_headerRows[group];
    return Place{group, offset == 0 ? std::nullopt : std::optional<qsizetype>(offset - 1)};
}

const DuplicateGroup &DuplicateListModel::groupAt(std::size_t group) const
{
    return m_groups.at(static_cast<qsizetype>(group));
}

const Song &DuplicateListModel::songAt(const Place &place) const
{
    const DuplicateGroup &group = groupAt(place.group);
    return *place.member == 0 ? group.original : group.duplicates.at(*place.member - 1);
}

bool DuplicateListModel::isCollapsed(std::size_t group) const
{
    return !m_collapsed.isEmpty() && m_collapsed.contains(groupAt(group).id);
}

int DuplicateListModel::rowsOf(std::size_t group) const
{
    return isCollapsed(group) ? 1 : 2 + static_cast<int>(groupAt(group).duplicates.size());
}

void DuplicateListModel::placeRowsFrom(std::size_t group)
{
    m_headerRows.resize(static_cast<std::size_t>(m_groups.size()) + 1);
    for (std::size_t i = group; i + 1 < m_headerRows.size(); ++i)
        m_headerRows[i + 1] = m_headerRows[i] + rowsOf(i);
}

void DuplicateListModel::followGroups()
{
    const QList<DuplicateGroup> groups = groupsWithDuplicates(m_viewModel->duplicateGroups());
    const auto [mine, theirs] =
        std::mismatch(m_groups.cbegin(), m_groups.cend(), groups.cbegin(), groups.cend(), haveSameSongs);
    if (mine == m_groups.cend() && theirs == groups.cend())
        return;
    const auto position = static_cast<std::size_t>(mine - m_groups.cbegin());
    const bool isSameCount = m_groups.size() == groups.size();
    const bool isOneLess = m_groups.size() == groups.size() + 1;
    if (isSameCount && mine->id == theirs->id &&
        std::equal(mine + 1, m_groups.cend(), theirs + 1, groups.cend(), haveSameSongs))
        followChangedGroup(position, *theirs);
    else if (isOneLess && !groups.isEmpty() &&
             std::equal(mine + 1, m_groups.cend(), theirs, groups.cend(), haveSameSongs))
        followRemovedGroup(position);
    else
        reset(groups);
}

void DuplicateListModel::followRemovedGroup(std::size_t group)
{
    beginRemoveRows({}, m_headerRows[group], m_headerRows[group + 1] - 1);
    m_collapsed.remove(groupAt(group).id);
    m_groups.removeAt(static_cast<qsizetype>(group));
    placeRowsFrom(group);
    endRemoveRows();
    Q_EMIT countChanged();
}

void DuplicateListModel::followChangedGroup(std::size_t group, const DuplicateGroup &changed)
{
    const QList<Song> before = membersOf(groupAt(group));
    const QList<Song> after = membersOf(changed);
    const auto haveSameId = [](const Song &a, const Song &b) { return a.id == b.id; };
    const auto [gone, kept] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), haveSameId);
    const bool isOneGone = before.size() == after.size() + 1 &&
                           std::equal(gone + 1, before.end(), kept, after.end(), haveSameId);
    if (!isOneGone) {
        reset(groupsWithDuplicates(m_viewModel->duplicateGroups()));
        return;
    }

    const int header = m_headerRows[group];
    const int row = header + 1 + static_cast<int>(gone - before.begin());
    const bool isShown = !isCollapsed(group);
    if (isShown)
        beginRemoveRows({}, row, row);
    m_groups[static_cast<qsizetype>(group)] = changed;
    placeRowsFrom(group);
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
    placeRowsFrom(0);
    endResetModel();
    Q_EMIT countChanged();
}

void DuplicateListModel::followPlaying()
{
    const std::optional<Song> &song = m_viewModel->currentlyPlayingSong();
    const QUuid before = std::exchange(m_playingId, song ? song->id : QUuid());
    announcePlaying(before);
    announcePlaying(m_playingId);
}

void DuplicateListModel::announcePlaying(const QUuid &songId)
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
