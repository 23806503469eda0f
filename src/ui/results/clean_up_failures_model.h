#pragma once

#include "session/duplicate_view_model.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// The songs that the last clean-up has left where they were, one in each row. Main thread only.
class CleanUpFailuresModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    /// The session that is shown.
    Q_PROPERTY(sonavo::DuplicateViewModel *viewModel READ viewModel WRITE setViewModel NOTIFY viewModelChanged
                   REQUIRED)
    /// How many there are, as "1,234 files could not be moved".
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)

public:
    enum Role
    {
        PathRole = Qt::UserRole,
        ReasonRole,
    };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] DuplicateViewModel *viewModel() const { return m_viewModel; }
    void setViewModel(DuplicateViewModel *viewModel);
    [[nodiscard]] QString title() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Shows the file of a row in the system's file viewer. Does nothing if there is no such row.
    Q_INVOKABLE void reveal(int row) const;

Q_SIGNALS:
    void viewModelChanged();
    void titleChanged();

private:
    void update();

    QPointer<DuplicateViewModel> m_viewModel;
    QList<SongFailure> m_failures;
};

} // namespace sonavo
