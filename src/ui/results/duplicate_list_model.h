#pragma once

#include "model/duplicate_group.h"
#include "session/duplicate_view_model.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QSet>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <vector>

namespace sonavo {

/// The session's duplicate groups as one flat list: for each group that has duplicates a header and, unless
/// it is collapsed, its original and its duplicates. It follows the session: a deleted song removes one row
/// or the rows of one group, everything else stays in place. Main thread only.
class DuplicateListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    /// The session that is shown; must outlive the list.
    Q_PROPERTY(sonavo::DuplicateViewModel *viewModel READ viewModel WRITE setViewModel NOTIFY viewModelChanged
                   REQUIRED)
    /// How many rows there are.
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role
    {
        /// "header" or "song".
        KindRole = Qt::UserRole,
        /// Slot of the group's tint among Colors.groupTints.
        TintRole,
        /// What the header says.
        TitleRole,
        IsExpandedRole,
        /// The song with all its fields; the other roles below show them to the person.
        SongRole,
        IsOriginalRole,
        IsPlayingRole,
        DurationRole,
        SizeRole,
        /// The row in one sentence.
        DescriptionRole,
    };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] DuplicateViewModel *viewModel() const { return m_viewModel; }
    void setViewModel(DuplicateViewModel *viewModel);
    [[nodiscard]] int count() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The row of the header of the group that a row belongs to; -1 for no row of the list.
    Q_INVOKABLE [[nodiscard]] int headerRow(int row) const;
    Q_INVOKABLE [[nodiscard]] bool isExpanded(int row) const;
    /// Shows or hides the songs of the group that a row belongs to.
    Q_INVOKABLE void setExpanded(int row, bool isExpanded);
    /// The song in a row; undefined for a header or no row of the list.
    Q_INVOKABLE [[nodiscard]] QVariant songAt(int row) const;

Q_SIGNALS:
    void viewModelChanged();
    void countChanged();

private:
    /// A place in the groups: a group, and one of its members, the original first. No member is the header.
    struct Place
    {
        std::size_t group = 0;
        std::optional<qsizetype> member;
    };

    [[nodiscard]] std::optional<Place> placeOf(int row) const;
    [[nodiscard]] const DuplicateGroup &groupAt(std::size_t group) const;
    [[nodiscard]] const Song &songAt(const Place &place) const;
    [[nodiscard]] QVariant headerValue(std::size_t group, int role) const;
    [[nodiscard]] QVariant songValue(const Place &place, int role) const;
    [[nodiscard]] bool isCollapsed(std::size_t group) const;
    [[nodiscard]] int rowsOf(std::size_t group) const;

    void followGroups();
    void followChangedGroup(std::size_t group, const DuplicateGroup &changed);
    void followRemovedGroup(std::size_t group);
    void reset(const QList<DuplicateGroup> &groups);
    void followPlaying();
    void announcePlaying(const QUuid &songId);
    void placeRowsFrom(std::size_t group);

    QPointer<DuplicateViewModel> m_viewModel;
    QList<DuplicateGroup> m_groups;
    /// The row of each group's header, and at the end the number of rows.
    std::vector<int> m_headerRows{0};
    QSet<QUuid> m_collapsed;
    QUuid m_playingId;
};

} // namespace sonavo
