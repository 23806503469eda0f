#include "ui/results/duplicate_list_model.h"

#include "model/byte_count.h"
#include "model/visible_controls.h"
#include "session/release.h"
#include "theme/palette.h"
#include "ui/results/group_texts.h"

#include <QThreadPool>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

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
    return isOriginal ? DuplicateListModel::tr("Original", "a song")
                      : DuplicateListModel::tr("Duplicate", "a song");
}

} // namespace

DuplicateListModel::DuplicateListModel(QObject *parent)
    : QAbstractListModel(parent)
{
    connect(&m_arranging, &QFutureWatcher<ArrangedGroups>::finished, this, [this] {
        if (m_arranging.isCanceled() || m_arranging.future().resultCount() == 0)
            return;
        const ArrangedGroups arranged = m_arranging.result();
        m_hiddenDuplicates = arranged.hiddenDuplicates;
        replaceGroups(arranged.groups);
        Q_EMIT arrangementChanged();
    });
}

DuplicateListModel::~DuplicateListModel()
{
    m_stopArranging.request_stop();
}

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
        {KindRole, "kind"},
        {TintRole, "tint"},
        {TitleRole, "title"},
        {SubtitleRole, "subtitle"},
        {FreedRole, "freed"},
        {IsExpandedRole, "isExpanded"},
        {SongRole, "song"},
        {IsOriginalRole, "isOriginal"},
        {IsPlayingRole, "isPlaying"},
        {NameRole, "name"},
        {FileTypeRole, "fileType"},
        {DurationRole, "duration"},
        {SizeRole, "size"},
        {FolderRole, "folder"},
        {DetailsRole, "details"},
        {QualityRole, "quality"},
        {DescriptionRole, "description"},
        {FurtherReasonRole, "furtherReason"},
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
        return tr("Group of %n songs", nullptr, static_cast<int>(groupAt(group).duplicates.size()) + 1);
    case SubtitleRole:
        return subtitleOf(groupAt(group));
    case FreedRole:
        return tr("Frees %1", "%1 is a size").arg(formattedByteCount(freedBytes(groupAt(group))));
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
    case NameRole:
        return withVisibleControls(song.name);
    case FileTypeRole:
        return song.fileType;
    case DurationRole:
        return song.formattedDuration();
    case SizeRole:
        return formattedByteCount(song.size);
    case FurtherReasonRole:
        return furtherReason(song);
    case FolderRole:
        return folderText(song, commonFolderLengthOf(entry.group));
    case DetailsRole:
        return detailsText(song, qualityText(song, m_viewModel->isLossless(song)),
                           m_viewModel->modifiedAt(song));
    case QualityRole:
        return qualityText(song, m_viewModel->isLossless(song));
    case DescriptionRole: {
        QStringList parts{badgeText(isOriginal),
                          withVisibleControls(song.name),
                          song.fileType,
                          song.formattedDuration(),
                          formattedByteCount(song.size),
                          folderText(song, commonFolderLengthOf(entry.group)),
                          furtherReason(song)};
        parts.removeAll(QString());
        return joinedParts(parts);
    }
    default:
        return {};
    }
}

QString DuplicateListModel::furtherReason(const Song &song) const
{
    if (!m_viewModel || !m_viewModel->onlyFurther().contains(song.id))
        return {};
    return tr("Found only by comparing every song with every other. Listen before you delete it.");
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
    return isCollapsed(groupAt(group));
}

bool DuplicateListModel::isCollapsed(const DuplicateGroup &group) const
{
    return !m_collapsed.isEmpty() && m_collapsed.contains(group.id);
}

int DuplicateListModel::rowCountOf(const DuplicateGroup &group) const
{
    return isCollapsed(group) ? 1 : 2 + static_cast<int>(group.duplicates.size());
}

void DuplicateListModel::updateHeaderRows(std::size_t group, std::size_t hiddenEnd)
{
    m_headerRows.resize(static_cast<std::size_t>(m_groups.size()) + 1);
    for (std::size_t i = group; i + 1 < m_headerRows.size(); ++i)
        m_headerRows[i + 1] = m_headerRows[i] + (i < hiddenEnd ? 0 : rowCountOf(groupAt(i)));
}

void DuplicateListModel::updateGroups()
{
    const QList<DuplicateGroup> groups = groupsWithDuplicates(m_viewModel->duplicateGroups());
    const bool isEmpty = groups.isEmpty();
    m_allGroups = groups;
    if (!isEmpty) {
        showArranged();
    } else if (m_viewModel->isScanning() || m_viewModel->songCount() == 0) {
        stopArranging();
        m_collapsed.clear();
        reset(groups);
    }
    updateMarks();
    if (std::exchange(m_isEmpty, isEmpty) != isEmpty)
        Q_EMIT isEmptyChanged();
}

void DuplicateListModel::updateMarks()
{
    const bool hasMarks = !m_viewModel->onlyFurther().isEmpty();
    // A song can get a mark when another group changes. Only rows in sight are read again.
    if ((std::exchange(m_hasMarks, hasMarks) || hasMarks) && count() > 0)
        Q_EMIT dataChanged(index(0), index(count() - 1), {FurtherReasonRole, DescriptionRole});
}

void DuplicateListModel::setFilter(const QString &filter)
{
    arrange({.order = m_arrangement.order, .filter = filter});
}

void DuplicateListModel::setOrder(GroupOrder::Order order)
{
    arrange({.order = order, .filter = m_arrangement.filter});
}

bool DuplicateListModel::showsAll() const
{
    return m_arrangement.filter.trimmed().isEmpty() || (m_arranging.isFinished() && m_hiddenDuplicates == 0);
}

QString DuplicateListModel::filterNote() const
{
    if (m_hiddenDuplicates == 0)
        return {};
    return tr("Filter hides %Ln duplicates", nullptr, m_hiddenDuplicates);
}

void DuplicateListModel::arrange(const GroupArrangement &arrangement)
{
    if (m_arrangement == arrangement)
        return;
    m_arrangement = arrangement;
    if (!m_allGroups.isEmpty())
        showArranged();
    Q_EMIT arrangementChanged();
}

void DuplicateListModel::showArranged()
{
    stopArranging();
    if (m_arrangement.isIdentity()) {
        m_hiddenDuplicates = 0;
        replaceGroups(m_allGroups);
        Q_EMIT arrangementChanged();
        return;
    }
    m_stopArranging = std::stop_source();
    const auto promise = std::make_shared<QPromise<ArrangedGroups>>();
    promise->start();
    m_arranging.setFuture(promise->future());
    QThreadPool::globalInstance()->start(
        [promise, groups = m_allGroups, arrangement = m_arrangement, stop = m_stopArranging.get_token()] {
            if (std::optional<ArrangedGroups> result = arranged(groups, arrangement, stop))
                promise->addResult(std::move(*result));
            promise->finish();
        });
    Q_EMIT arrangementChanged();
}

void DuplicateListModel::stopArranging()
{
    m_stopArranging.request_stop();
    m_arranging.setFuture({});
    m_hiddenDuplicates = 0;
}

qsizetype DuplicateListModel::commonFolderLengthOf(std::size_t group) const
{
    const DuplicateGroup &members = groupAt(group);
    if (!m_commonFolder.first.isSharedWith(members.duplicates))
        m_commonFolder = {members.duplicates, commonFolderLength(members)};
    return m_commonFolder.second;
}

void DuplicateListModel::replaceGroups(const QList<DuplicateGroup> &groups)
{
    const auto [oldFirst, newFirst] =
        std::mismatch(m_groups.cbegin(), m_groups.cend(), groups.cbegin(), groups.cend(), haveSameSongs);
    const auto [oldRest, newRest] =
        std::mismatch(m_groups.crbegin(), std::make_reverse_iterator(oldFirst), groups.crbegin(),
                      std::make_reverse_iterator(newFirst), haveSameSongs);
    const auto first = static_cast<std::size_t>(oldFirst - m_groups.cbegin());
    const auto oldCount = static_cast<std::size_t>(oldRest.base() - oldFirst);
    const auto newCount = static_cast<std::size_t>(newRest.base() - newFirst);
    if (oldCount == 0 && newCount == 0)
        return;
    if (oldCount == newCount && reorderMembers(first, oldCount, groups))
        return;
    if (oldCount == static_cast<std::size_t>(m_groups.size()) && oldCount != 1) {
        reset(groups);
        return;
    }
    if (oldCount == 1 && newCount == 1 && updateMembers(first, groups))
        return;
    if (oldCount > 0) {
        // The groups that have gone are hidden until the others are there: both lists may be long.
        beginRemoveRows({}, m_headerRows[first], m_headerRows[first + oldCount] - 1);
        updateHeaderRows(first, first + oldCount);
        endRemoveRows();
    }
    setGroups(first, newCount, groups);
    Q_EMIT countChanged();
}

void DuplicateListModel::setGroups(std::size_t first, std::size_t newCount,
                                   const QList<DuplicateGroup> &groups)
{
    const int row = m_headerRows[first];
    int rows = 0;
    for (std::size_t i = first; i < first + newCount; ++i)
        rows += rowCountOf(groups.at(static_cast<qsizetype>(i)));
    if (rows > 0)
        beginInsertRows({}, row, row + rows - 1);
    m_groups = groups;
    updateHeaderRows(first);
    if (rows > 0)
        endInsertRows();
}

bool DuplicateListModel::updateMembers(std::size_t group, const QList<DuplicateGroup> &groups)
{
    const DuplicateGroup &changed = groups.at(static_cast<qsizetype>(group));
    const QList<Song> before = membersOf(groupAt(group));
    const QList<Song> after = membersOf(changed);
    const auto haveSameId = [](const Song &a, const Song &b) { return a.id == b.id; };
    const auto [removed, inserted] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), haveSameId);
    const auto [removedEnd, insertedEnd] =
        std::mismatch(before.rbegin(), std::make_reverse_iterator(removed), after.rbegin(),
                      std::make_reverse_iterator(inserted), haveSameId);
    const auto removedCount = static_cast<int>(removedEnd.base() - removed);
    const auto insertedCount = static_cast<int>(insertedEnd.base() - inserted);
    if (changed.id != groupAt(group).id || (removedCount > 0 && insertedCount > 0))
        return false;

    const int header = m_headerRows[group];
    const int row = header + 1 + static_cast<int>(removed - before.begin());
    const bool isShown = !isCollapsed(group);
    if (isShown && removedCount > 0)
        beginRemoveRows({}, row, row + removedCount - 1);
    else if (isShown)
        beginInsertRows({}, row, row + insertedCount - 1);
    m_groups = groups;
    updateHeaderRows(group);
    if (isShown && removedCount > 0)
        endRemoveRows();
    else if (isShown)
        endInsertRows();
    Q_EMIT dataChanged(index(header), index(header), {TitleRole, SubtitleRole, FreedRole, DescriptionRole});
    // The next song becomes the original, or the one that was it becomes a duplicate again.
    if (isShown && row == header + 1)
        Q_EMIT dataChanged(index(row), index(row + insertedCount), {IsOriginalRole, DescriptionRole});
    if (isShown)
        Q_EMIT dataChanged(index(header + 1), index(m_headerRows[group + 1] - 1),
                           {FolderRole, DescriptionRole});
    Q_EMIT countChanged();
    return true;
}

bool DuplicateListModel::reorderMembers(std::size_t first, std::size_t count,
                                        const QList<DuplicateGroup> &groups)
{
    const auto begin = static_cast<qsizetype>(first);
    const auto end = begin + static_cast<qsizetype>(count);
    const bool haveSameRows =
        std::equal(m_groups.cbegin() + begin, m_groups.cbegin() + end, groups.cbegin() + begin,
                   groups.cbegin() + end, [](const DuplicateGroup &a, const DuplicateGroup &b) {
                       return a.id == b.id && a.duplicates.size() == b.duplicates.size();
                   });
    if (!haveSameRows)
        return false;
    m_groups = groups;
    Q_EMIT dataChanged(index(m_headerRows[first]), index(m_headerRows[first + count] - 1));
    return true;
}

void DuplicateListModel::reset(const QList<DuplicateGroup> &groups)
{
    if (m_groups.isEmpty() && groups.isEmpty())
        return;
    beginResetModel();
    releaseLater(std::exchange(m_groups, groups));
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

QVariant DuplicateListModel::originalAt(int row) const
{
    const std::optional<Entry> entry = entryAt(row);
    return entry ? QVariant::fromValue(groupAt(entry->group).original) : QVariant();
}

int DuplicateListModel::rowOf(const Song &song) const
{
    return rowOf(song.id);
}

int DuplicateListModel::rowOf(const QUuid &songId) const
{
    if (songId.isNull())
        return -1;
    for (std::size_t i = 0; i + 1 < m_headerRows.size(); ++i) {
        if (isCollapsed(i))
            continue;
        const DuplicateGroup &group = groupAt(i);
        qsizetype member = group.original.id == songId ? 0 : -1;
        for (qsizetype d = 0; member < 0 && d < group.duplicates.size(); ++d)
            member = group.duplicates.at(d).id == songId ? d + 1 : -1;
        if (member >= 0)
            return m_headerRows[i] + 1 + static_cast<int>(member);
    }
    return -1;
}

void DuplicateListModel::emitPlayingChanged(const QUuid &songId)
{
    const int row = rowOf(songId);
    if (row >= 0)
        Q_EMIT dataChanged(index(row), index(row), {IsPlayingRole});
}

} // namespace sonavo
