#include "desktop/music_dialog.h"

#include "model/audio_formats.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QShortcut>
#include <QStandardPaths>
#include <QWindow>

#include <algorithm>

namespace sonavo {
namespace {

QString musicFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

/// The window that a panel belongs to. It is no widget, so a dialog does not find it by itself.
QWindow *windowInUse()
{
    if (QWindow *focused = QGuiApplication::focusWindow())
        return focused;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto visible =
        std::find_if(windows.begin(), windows.end(), [](QWindow *w) { return w->isVisible(); });
    return visible == windows.end() ? nullptr : *visible;
}

/// Drawn by the application, so that it has its colours.
class Panel : public QFileDialog
{
public:
    explicit Panel(const QString &title)
        : QFileDialog(nullptr, title)
    {
        setOption(DontUseNativeDialog);
        setAcceptMode(AcceptOpen);
        // What the dialog offers for tidying up deletes for good, and a slip of the mouse moves files.
        for (QAction *action : findChildren<QAction *>()) {
            const QString name = action->objectName();
            if (name == QStringLiteral("qt_delete_action") || name == QStringLiteral("qt_rename_action"))
                action->setVisible(false);
        }
        for (QShortcut *shortcut : findChildren<QShortcut *>()) {
            if (shortcut->key() == QKeySequence::Delete)
                shortcut->setEnabled(false);
        }
        for (QAbstractItemView *view : {list(), details()}) {
            view->setDragDropMode(QAbstractItemView::NoDragDrop);
            view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        }
    }

    /// @return whether the person confirmed
    bool run(QString &folder)
    {
        setDirectory(QFileInfo(folder).isDir() ? folder : musicFolder());
        winId(); // makes the native window
        windowHandle()->setTransientParent(windowInUse());
        const bool isConfirmed = exec() == Accepted;
        folder = directory().absolutePath();
        return isConfirmed;
    }

protected:
    QAbstractItemView *list() const { return findChild<QAbstractItemView *>(QStringLiteral("listView")); }
    QAbstractItemView *details() const { return findChild<QAbstractItemView *>(QStringLiteral("treeView")); }
    QLineEdit *nameEdit() const { return findChild<QLineEdit *>(QStringLiteral("fileNameEdit")); }
};

/// A panel that takes folders as well as files.
class MusicPanel final : public Panel
{
public:
    MusicPanel()
        : Panel(QStringLiteral("Add Songs"))
    {
        setFileMode(ExistingFiles);
        setOption(ReadOnly);
        setNameFilter(QStringLiteral("Songs (*.%1)").arg(audioExtensions().join(QStringLiteral(" *."))));
        connect(selection(), &QItemSelectionModel::selectionChanged, this, [this] { nameSelected(); });
        connect(this, &QFileDialog::directoryEntered, this, [this] { chooseNothing(); });
    }

    void accept() override
    {
        const QString named = nameEdit()->text();
        const QStringList paths = selectedFiles();
        const bool areThere = std::all_of(paths.begin(), paths.end(),
                                          [](const QString &path) { return QFileInfo::exists(path); });
        if (named.isEmpty() || paths.isEmpty())
            return; // without a name it would be the folder that is shown
        if (areThere && named != QStringLiteral(".."))
            done(Accepted); // where the dialog itself would enter folders
        else
            QFileDialog::accept();
    }

private:
    QItemSelectionModel *selection() const { return list()->selectionModel(); }

    /// The dialog itself names only files.
    void nameSelected()
    {
        QStringList names;
        for (const QModelIndex &row : selection()->selectedRows()) {
            if (row != list()->rootIndex())
                names += row.data().toString();
        }
        if (names.isEmpty() || nameEdit()->hasFocus())
            return;
        nameEdit()->setText(names.size() == 1 ? names.constFirst()
                                              : u'"' + names.join(QStringLiteral("\" \"")) + u'"');
    }

    /// The dialog itself would keep the name of the folder that was entered, and then look for it inside.
    void chooseNothing()
    {
        nameEdit()->clear();
        selection()->clearSelection();
    }
};

} // namespace

QList<QUrl> askForMusic(QString &folder)
{
    MusicPanel panel;
    return panel.run(folder) ? panel.selectedUrls() : QList<QUrl>();
}

QString askForFolder(const QString &message, const QString &prompt, QString &folder)
{
    Panel panel(message);
    panel.setFileMode(QFileDialog::Directory);
    panel.setOption(QFileDialog::ShowDirsOnly);
    panel.setLabelText(QFileDialog::Accept, prompt);
    return panel.run(folder) ? panel.selectedFiles().constFirst() : QString();
}

} // namespace sonavo
