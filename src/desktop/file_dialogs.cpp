#include "desktop/file_dialogs.h"

#include "model/audio_formats.h"
#include "model/translate.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QShortcut>
#include <QStandardPaths>
#include <QWindow>

#include <algorithm>
#include <optional>

namespace sonavo {
namespace {

QString userFolder(QStandardPaths::StandardLocation location)
{
    const QString folder = QStandardPaths::writableLocation(location);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

/// The window that a dialog belongs to. It is no widget, so QDialog does not find it by itself.
QWindow *activeWindow()
{
    if (QWindow *focused = QGuiApplication::focusWindow())
        return focused;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto visible =
        std::find_if(windows.begin(), windows.end(), [](QWindow *window) { return window->isVisible(); });
    return visible == windows.end() ? nullptr : *visible;
}

/// Qt's own dialog rather than the desktop's, so that it takes the colours of the theme.
class SafeFileDialog : public QFileDialog
{
public:
    explicit SafeFileDialog(const QString &title)
        : QFileDialog(nullptr, title)
    {
        setOption(DontUseNativeDialog);
        setAcceptMode(AcceptOpen);
        // The dialog's own Delete removes files for good, and a slip of the mouse moves them. Its key works
        // although the menu entry is hidden.
        for (QAction *action : findChildren<QAction *>()) {
            const QString name = action->objectName();
            if (name == QStringLiteral("qt_delete_action") || name == QStringLiteral("qt_rename_action"))
                action->setVisible(false);
        }
        for (QShortcut *shortcut : findChildren<QShortcut *>()) {
            if (shortcut->key() == QKeySequence::Delete)
                shortcut->setEnabled(false);
        }
        for (QAbstractItemView *view : {listView(), treeView()}) {
            view->setDragDropMode(QAbstractItemView::NoDragDrop);
            view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        }
    }

    /// @return whether the user confirmed
    /// @param start what to show when `folder` is none
    bool run(QString &folder, QStandardPaths::StandardLocation start = QStandardPaths::MusicLocation)
    {
        setDirectory(QFileInfo(folder).isDir() ? folder : userFolder(start));
        winId(); // makes the native window
        windowHandle()->setTransientParent(activeWindow());
        const bool isAccepted = exec() == Accepted;
        folder = directory().absolutePath();
        return isAccepted;
    }

protected:
    QAbstractItemView *listView() const { return findChild<QAbstractItemView *>(QStringLiteral("listView")); }
    QAbstractItemView *treeView() const { return findChild<QAbstractItemView *>(QStringLiteral("treeView")); }
    QLineEdit *nameEdit() const { return findChild<QLineEdit *>(QStringLiteral("fileNameEdit")); }
};

/// Accepts folders as well as files, which QFileDialog does not.
class MusicDialog final : public SafeFileDialog
{
public:
    MusicDialog()
        : SafeFileDialog(translate("FileDialogs", "Add Songs", "the title of a dialog"))
    {
        setFileMode(ExistingFiles);
        setOption(ReadOnly);
        setNameFilter(translate("FileDialogs", "Songs (*.%1)", "a kind of files; %1 lists their extensions")
                          .arg(audioExtensions().join(QStringLiteral(" *."))));
        connect(selection(), &QItemSelectionModel::selectionChanged, this, [this] { showSelectedNames(); });
        connect(this, &QFileDialog::directoryEntered, this, [this] { clearSelection(); });
    }

    void accept() override
    {
        const QString names = nameEdit()->text();
        const QStringList paths = selectedFiles();
        if (names.isEmpty() || paths.isEmpty())
            return; // would accept the folder that is shown
        const bool allExist = std::all_of(paths.begin(), paths.end(),
                                          [](const QString &path) { return QFileInfo::exists(path); });
        if (allExist && names != QStringLiteral(".."))
            done(Accepted); // the base class would enter a folder
        else
            QFileDialog::accept();
    }

private:
    QItemSelectionModel *selection() const { return listView()->selectionModel(); }

    /// The base class does so for files only.
    void showSelectedNames()
    {
        QStringList names;
        for (const QModelIndex &row : selection()->selectedRows()) {
            if (row != listView()->rootIndex())
                names += row.data().toString();
        }
        if (names.isEmpty() || nameEdit()->hasFocus())
            return;
        nameEdit()->setText(names.size() == 1 ? names.constFirst()
                                              : u'"' + names.join(QStringLiteral("\" \"")) + u'"');
    }

    /// The base class would keep the name of the folder that was entered, and look for it inside.
    void clearSelection()
    {
        nameEdit()->clear();
        selection()->clearSelection();
    }
};

/// Gives every file the extension of its kind.
class ReportDialog final : public SafeFileDialog
{
public:
    explicit ReportDialog(const QString &name)
        : SafeFileDialog(translate("FileDialogs", "Save Report", "the title of a dialog"))
    {
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        setNameFilters({translate("FileDialogs", "Spreadsheet (*.csv)"), QStringLiteral("JSON (*.json)")});
        selectFile(name + chosenExtension());
        connect(this, &QFileDialog::filterSelected, this,
                [this] { nameEdit()->setText(baseName() + chosenExtension()); });
    }

    void accept() override
    {
        const QString name = nameEdit()->text();
        const bool isFolder = directory().exists(name) && QFileInfo(directory(), name).isDir();
        // Before the base class asks whether a file of this name may be replaced.
        if (!name.isEmpty() && !isFolder && baseName() == name)
            nameEdit()->setText(name + chosenExtension());
        SafeFileDialog::accept();
    }

private:
    [[nodiscard]] QString chosenExtension() const
    {
        return selectedNameFilter().contains(u".json") ? QStringLiteral(".json") : QStringLiteral(".csv");
    }
    [[nodiscard]] QString baseName() const
    {
        QString name = nameEdit()->text();
        for (const QString &extension : {QStringLiteral(".csv"), QStringLiteral(".json")}) {
            if (name.endsWith(extension, Qt::CaseInsensitive))
                return name.chopped(extension.size());
        }
        return name;
    }
};

void prepareFolderDialog(QFileDialog &dialog, const QString &acceptLabel)
{
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, acceptLabel);
}

/// The dialog of the desktop, which takes files or folders but not both at once.
/// @return nothing where the platform theme has none; an empty path when cancelled
std::optional<QString> runNativeFolderDialog(const QString &title, const QString &acceptLabel,
                                             QString &folder)
{
    QFileDialog dialog(nullptr, title);
    // Qt's own one has its parts from the beginning.
    if (dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
        return {};
    prepareFolderDialog(dialog, acceptLabel);
    dialog.setDirectory(QFileInfo(folder).isDir() ? folder : userFolder(QStandardPaths::MusicLocation));
    dialog.winId(); // makes the native window
    dialog.windowHandle()->setTransientParent(activeWindow());
    // Some themes run a loop of their own for exec(), which does not end with the application.
    QEventLoop loop;
    QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
    dialog.open();
    loop.exec();
    const QStringList chosen = dialog.selectedFiles();
    if (dialog.result() != QDialog::Accepted || chosen.isEmpty())
        return QString();
    folder = QFileInfo(chosen.constFirst()).path();
    return chosen.constFirst();
}

} // namespace

QList<QUrl> runMusicDialog(QString &folder)
{
    MusicDialog dialog;
    return dialog.run(folder) ? dialog.selectedUrls() : QList<QUrl>();
}

QString runFolderDialog(const QString &title, const QString &acceptLabel, QString &folder)
{
    if (const std::optional<QString> chosen = runNativeFolderDialog(title, acceptLabel, folder))
        return *chosen;
    SafeFileDialog dialog(title);
    prepareFolderDialog(dialog, acceptLabel);
    return dialog.run(folder) ? dialog.selectedFiles().constFirst() : QString();
}

QString runReportDialog(const QString &name, QString &folder)
{
    ReportDialog dialog(name);
    return dialog.run(folder, QStandardPaths::DocumentsLocation) ? dialog.selectedFiles().constFirst()
                                                                 : QString();
}

} // namespace sonavo
