#include "ui/results/clean_up_failures_model.h"

#include "model/visible_controls.h"

namespace sonavo {

void CleanUpFailuresModel::setViewModel(DuplicateViewModel *viewModel)
{
    if (m_viewModel == viewModel)
        return;
    if (m_viewModel)
        m_viewModel->disconnect(this);
    m_viewModel = viewModel;
    if (viewModel) {
        connect(viewModel, &DuplicateViewModel::cleanUpSummaryChanged, this, &CleanUpFailuresModel::update);
        update();
    }
    Q_EMIT viewModelChanged();
}

QString CleanUpFailuresModel::title() const
{
    return tr("%Ln files could not be moved", nullptr, static_cast<int>(m_failures.size()));
}

int CleanUpFailuresModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_failures.size());
}

QHash<int, QByteArray> CleanUpFailuresModel::roleNames() const
{
    return {{PathRole, "path"}, {ReasonRole, "reason"}};
}

QVariant CleanUpFailuresModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_failures.size())
        return {};
    const SongFailure &failure = m_failures.at(index.row());
    switch (role) {
    case PathRole:
        return pathInText(failure.song.path);
    case ReasonRole:
        return failure.reason;
    default:
        return {};
    }
}

void CleanUpFailuresModel::reveal(int row) const
{
    if (m_viewModel && row >= 0 && row < m_failures.size())
        m_viewModel->revealSong(m_failures.at(row).song);
}

void CleanUpFailuresModel::update()
{
    beginResetModel();
    m_failures = m_viewModel->cleanUpFailures();
    endResetModel();
    Q_EMIT titleChanged();
}

} // namespace sonavo
