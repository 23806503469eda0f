#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

/// What the keyboard does, in one list: menus and key handlers take their keys from it, the overview of all
/// keys shows it. Main thread only.
class Shortcuts : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    enum Action
    {
        // While the list of results has the keyboard.
        RowAbove,
        RowBelow,
        FirstRow,
        LastRow,
        HideSongs,
        ShowSongs,
        ToggleGroup,
        Listen,
        Compare,
        MoveToTrash,
        KeepThisOne,
        OpenRowMenu,
        // Everywhere.
        AddSong,
        ScanCopiedFiles,
        SaveReport,
        ClearList,
        Filter,
        FindMore,
        Undo,
        OpenMenu,
        ShowShortcuts,
        ShowWindow,
        Minimize,
        Quit,
        NextControl,
        Close,
        None
    };
    Q_ENUM(Action)

    enum Group
    {
        ListGroup,
        EverywhereGroup
    };
    Q_ENUM(Group)

    using QObject::QObject;

    /// The actions of a group, as numbers.
    Q_INVOKABLE [[nodiscard]] static QVariantList actionsOf(int group);
    /// What an action does, as in its menu.
    Q_INVOKABLE [[nodiscard]] static QString textOf(int action);
    /// Every key of an action, in Qt's portable format, as "Ctrl+O".
    [[nodiscard]] static QStringList keysOf(int action);
    /// The same, as a Shortcut takes them.
    Q_INVOKABLE [[nodiscard]] static QVariantList sequencesOf(int action);
    /// All but the first, which is that of the menu item.
    Q_INVOKABLE [[nodiscard]] static QVariantList furtherSequencesOf(int action);
    /// The first of them.
    Q_INVOKABLE [[nodiscard]] static QString keyOf(int action);
    /// All of them as the user's keyboard and language name them.
    Q_INVOKABLE [[nodiscard]] static QString shownKeysOf(int action);
    /// What a key does in the list of results.
    /// @param key, modifiers of a key event
    Q_INVOKABLE [[nodiscard]] static int listAction(int key, int modifiers);
};

} // namespace sonavo
