#pragma once

#include "model/duplicate_group.h"
#include "session/duplicate_view_model.h"
#include "ui/results/group_arrangement.h"

#include <QAbstractListModel>
#include <QFutureWatcher>
#include <QPointer>
#include <QSet>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <stop_token>
#include <vector>

namespace sonavo {

/// The session's duplicate groups as a flat list. Each group that has duplicates gives a header row and,
/// unless it is collapsed, a row for its original and for each of its duplicates. Only rows that differ are
/// removed and inserted. Filtering and sorting happen in another thread; the rows change when they are done.
/// Main thread only.
class DuplicateListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    /// The session that is shown.
    Q_PROPERTY(sonavo::DuplicateViewModel *viewModel READ viewModel WRITE setViewModel NOTIFY viewModelChanged
                   REQUIRED)
    /// Number of rows.
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// Whether no group has duplicates. After a clean-up the rows are kept nevertheless, so that an undo need
    /// not make their items again.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)
    /// Words that a song of each group shown has in its name or folder; empty shows all groups.
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY arrangementChanged)
    Q_PROPERTY(sonavo::GroupOrder::Order order READ order WRITE setOrder NOTIFY arrangementChanged)
    /// Whether the filter hides no duplicate; false while that is not known.
    Q_PROPERTY(bool showsAll READ showsAll NOTIFY arrangementChanged)
    /// "Filter hides 312 duplicates"; empty when it hides none.
    Q_PROPERTY(QString filterNote READ filterNote NOTIFY arrangementChanged)

public:
    enum Role
    {
        /// "header" or "song".
        KindRole = Qt::UserRole,
        /// Slot of the group's tint among Colors.groupTints.
        TintRole,
        /// Texts of a header row: its title, the song, and what cleaning the group up frees.
        TitleRole,
        SubtitleRole,
        FreedRole,
        IsExpandedRole,
        /// The Song of a song row.
        SongRole,
        IsOriginalRole,
        IsPlayingRole,
        /// Why the song is called a duplicate, where only looking further has found it; empty otherwise.
        FurtherReasonRole,
        /// The cells of a song row as text.
        NameRole,
        FileTypeRole,
        DurationRole,
        SizeRole,
        /// What tells its folder from those of the other songs in the group.
        FolderRole,
        /// Its file, in several lines.
        DetailsRole,
        QualityRole,
        /// The whole row as one line of text, for screen readers.
        DescriptionRole,
    };
    Q_ENUM(Role)

    explicit DuplicateListModel(QObject *parent = nullptr);
    ~DuplicateListModel() override;
    Q_DISABLE_COPY_MOVE(DuplicateListModel)

    [[nodiscard]] DuplicateViewModel *viewModel() const { return m_viewModel; }
    void setViewModel(DuplicateViewModel *viewModel);
    [[nodiscard]] int count() const;
    [[nodiscard]] bool isEmpty() const { return m_isEmpty; }
    [[nodiscard]] const QString &filter() const { return m_arrangement.filter; }
    void setFilter(const QString &filter);
    [[nodiscard]] GroupOrder::Order order() const { return m_arrangement.order; }
    void setOrder(GroupOrder::Order order);
    [[nodiscard]] bool showsAll() const;
    [[nodiscard]] QString filterNote() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The header row of the group that a row belongs to; -1 if there is no such row.
    Q_INVOKABLE [[nodiscard]] int headerRow(int row) const;
    /// Whether the group that a row belongs to shows its songs; false if there is no such row.
    Q_INVOKABLE [[nodiscard]] bool isExpanded(int row) const;
    /// Expands or collapses the group that a row belongs to. Does nothing if there is no such row.
    Q_INVOKABLE void setExpanded(int row, bool isExpanded);
    /// The Song of a row; undefined for a header row and if there is no such row.
    Q_INVOKABLE [[nodiscard]] QVariant songAt(int row) const;
    /// The original of the group that a row belongs to; undefined if there is no such row.
    Q_INVOKABLE [[nodiscard]] QVariant originalAt(int row) const;
    /// The row of a song; -1 if it has none.
    Q_INVOKABLE [[nodiscard]] int rowOf(const sonavo::Song &song) const;

Q_SIGNALS:
    void viewModelChanged();
    void countChanged();
    void isEmptyChanged();
    void arrangementChanged();

private:
    /// What a row shows: one member of a group, the original being the first, or the group's header.
    struct Entry
    {
        std::size_t group = 0;
        std::optional<qsizetype> member;
    };

    [[nodiscard]] std::optional<Entry> entryAt(int row) const;
    [[nodiscard]] const DuplicateGroup &groupAt(std::size_t group) const;
    [[nodiscard]] const Song &songOf(const Entry &entry) const;
    [[nodiscard]] QVariant groupData(std::size_t group, int role) const;
    [[nodiscard]] QVariant songData(const Entry &entry, int role) const;
    [[nodiscard]] bool isCollapsed(std::size_t group) const;
    [[nodiscard]] bool isCollapsed(const DuplicateGroup &group) const;
    [[nodiscard]] int rowCountOf(const DuplicateGroup &group) const;
    [[nodiscard]] QString furtherReason(const Song &song) const;

    void updateGroups();
    void arrange(const GroupArrangement &arrangement);
    /// Shows the session's groups as they are arranged now, at once or when that is computed.
    void showArranged();
    void stopArranging();
    [[nodiscard]] qsizetype commonFolderLengthOf(std::size_t group) const;
    void updateMarks();
    void replaceGroups(const QList<DuplicateGroup> &groups);
    /// Sets the groups, of which a number has come in addition to those that have rows now.
    /// @param first the first of them
    void setGroups(std::size_t first, std::size_t newCount, const QList<DuplicateGroup> &groups);
    /// Sets the groups, of which one has more members than now, or fewer.
    /// @return false if it differs in another way; then nothing is done
    [[nodiscard]] bool updateMembers(std::size_t group, const QList<DuplicateGroup> &groups);
    /// Sets the groups, of which a number has as many members as now, in another order.
    /// @param first the first of them
    /// @return false if they differ in another way; then nothing is done
    [[nodiscard]] bool reorderMembers(std::size_t first, std::size_t count,
                                      const QList<DuplicateGroup> &groups);
    void reset(const QList<DuplicateGroup> &groups);
    void updatePlaying();
    [[nodiscard]] int rowOf(const QUuid &songId) const;
    void emitPlayingChanged(const QUuid &songId);
    /// Recomputes the header rows of all groups after this one, as if the groups before `hiddenEnd` had no
    /// rows.
    void updateHeaderRows(std::size_t group, std::size_t hiddenEnd = 0);

    QPointer<DuplicateViewModel> m_viewModel;
    /// All groups that have duplicates, and those that are shown.
    QList<DuplicateGroup> m_allGroups;
    QList<DuplicateGroup> m_groups;
    GroupArrangement m_arrangement;
    int m_hiddenDuplicates = 0;
    QFutureWatcher<ArrangedGroups> m_arranging;
    std::stop_source m_stopArranging{std::nostopstate};
    /// The last result of commonFolderLengthOf(), which every row of a group needs.
    mutable std::pair<QList<Song>, qsizetype> m_commonFolder;
    /// The header row of each group, followed by the number of rows.
    std::vector<int> m_headerRows{0};
    QSet<QUuid> m_collapsed;
    QUuid m_playingId;
    bool m_isEmpty = true;
    /// Whether some songs were found only by looking further.
    bool m_hasMarks = false;
};

} // namespace sonavo
