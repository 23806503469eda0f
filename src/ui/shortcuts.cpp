#include "ui/shortcuts.h"

#include "model/translate.h"

#include <QGuiApplication>
#include <QKeySequence>

#include <algorithm>
#include <span>

namespace sonavo {
namespace {

struct ListedAction
{
    Shortcuts::Action action;
    Shortcuts::Group group;
    /// Separated by blanks.
    const char *keys;
    const char *text;
};

std::span<const ListedAction> listedActions()
{
    using S = Shortcuts;
    static constexpr ListedAction ACTIONS[] = {
        {S::RowAbove, S::ListGroup, "Up", QT_TRANSLATE_NOOP("Shortcuts", "Row Above")},
        {S::RowBelow, S::ListGroup, "Down", QT_TRANSLATE_NOOP("Shortcuts", "Row Below")},
        {S::FirstRow, S::ListGroup, "Home", QT_TRANSLATE_NOOP("Shortcuts", "First Row")},
        {S::LastRow, S::ListGroup, "End", QT_TRANSLATE_NOOP("Shortcuts", "Last Row")},
        {S::HideSongs, S::ListGroup, "Left", QT_TRANSLATE_NOOP("Shortcuts", "Hide the Songs of the Group")},
        {S::ShowSongs, S::ListGroup, "Right", QT_TRANSLATE_NOOP("Shortcuts", "Show the Songs of the Group")},
        {S::ToggleGroup, S::ListGroup, "Return Enter",
         QT_TRANSLATE_NOOP("Shortcuts", "On a Group: Hide or Show Its Songs")},
        {S::Listen, S::ListGroup, "Space", QT_TRANSLATE_NOOP("Shortcuts", "Listen, or Stop")},
        {S::Compare, S::ListGroup, "Shift+Space",
         QT_TRANSLATE_NOOP("Shortcuts", "Listen from the Same Second")},
        {S::MoveToTrash, S::ListGroup, "Delete", QT_TRANSLATE_NOOP("Shortcuts", "Move to Trash")},
        {S::KeepThisOne, S::ListGroup, "K", QT_TRANSLATE_NOOP("Shortcuts", "Keep This One")},
        {S::OpenRowMenu, S::ListGroup, "Menu Shift+F10",
         QT_TRANSLATE_NOOP("Shortcuts", "Menu of the Song or Group")},
        {S::AddSong, S::EverywhereGroup, "Ctrl+O", QT_TRANSLATE_NOOP("Shortcuts", "Add Song")},
        {S::ScanCopiedFiles, S::EverywhereGroup, "Ctrl+V",
         QT_TRANSLATE_NOOP("Shortcuts", "Scan Copied Files")},
        {S::SaveReport, S::EverywhereGroup, "Ctrl+S", QT_TRANSLATE_NOOP("Shortcuts", "Save Report…")},
        {S::ClearList, S::EverywhereGroup, "Ctrl+L", QT_TRANSLATE_NOOP("Shortcuts", "Clear List")},
        {S::Filter, S::EverywhereGroup, "Ctrl+F", QT_TRANSLATE_NOOP("Shortcuts", "Filter Names and Folders")},
        {S::FindMore, S::EverywhereGroup, "Ctrl+Shift+F",
         QT_TRANSLATE_NOOP("Shortcuts", "Find More Duplicates")},
        {S::Undo, S::EverywhereGroup, "Ctrl+Z", QT_TRANSLATE_NOOP("Shortcuts", "Undo")},
        {S::OpenMenu, S::EverywhereGroup, "F10", QT_TRANSLATE_NOOP("Shortcuts", "Open the Menu")},
        {S::ShowShortcuts, S::EverywhereGroup, "F1 Ctrl+?",
         QT_TRANSLATE_NOOP("Shortcuts", "Keyboard Shortcuts")},
        {S::ShowWindow, S::EverywhereGroup, "Ctrl+0", QT_TRANSLATE_NOOP("Shortcuts", "Show Main Window")},
        {S::Minimize, S::EverywhereGroup, "Ctrl+M", QT_TRANSLATE_NOOP("Shortcuts", "Minimize")},
        {S::Quit, S::EverywhereGroup, "Ctrl+Q", QT_TRANSLATE_NOOP("Shortcuts", "Quit")},
        {S::NextControl, S::EverywhereGroup, "Tab", QT_TRANSLATE_NOOP("Shortcuts", "Next Control")},
        {S::Close, S::EverywhereGroup, "Escape",
         QT_TRANSLATE_NOOP("Shortcuts", "Close What Lies on Top, or Stop a Clean-Up")},
    };
    return ACTIONS;
}

const ListedAction &listed(int action)
{
    const auto actions = listedActions();
    const auto found = std::ranges::find(actions, action, &ListedAction::action);
    Q_ASSERT(found != actions.end());
    return *found;
}

} // namespace

QVariantList Shortcuts::actionsOf(int group)
{
    QVariantList numbers;
    for (const ListedAction &entry : listedActions()) {
        if (entry.group == group)
            numbers.append(entry.action);
    }
    return numbers;
}

QString Shortcuts::textOf(int action)
{
    return translate("Shortcuts", listed(action).text);
}

QStringList Shortcuts::keysOf(int action)
{
    // The arrows follow the direction of the window.
    if (QGuiApplication::isRightToLeft() && action == HideSongs)
        return {QStringLiteral("Right")};
    if (QGuiApplication::isRightToLeft() && action == ShowSongs)
        return {QStringLiteral("Left")};
    return QString::fromLatin1(listed(action).keys).split(u' ');
}

QVariantList Shortcuts::sequencesOf(int action)
{
    const QStringList keys = keysOf(action);
    return {keys.begin(), keys.end()};
}

QVariantList Shortcuts::furtherSequencesOf(int action)
{
    return sequencesOf(action).sliced(1);
}

QString Shortcuts::keyOf(int action)
{
    return keysOf(action).constFirst();
}

QString Shortcuts::shownKeysOf(int action)
{
    QStringList shown;
    for (const QString &key : keysOf(action))
        shown.append(QKeySequence(key, QKeySequence::PortableText).toString(QKeySequence::NativeText));
    return shown.join(QStringLiteral(", "));
}

int Shortcuts::listAction(int key, int modifiers)
{
    // The keys of the number pad are the same.
    const QKeySequence pressed(key | (modifiers & ~static_cast<int>(Qt::KeypadModifier)));
    for (const ListedAction &entry : listedActions()) {
        const auto isPressed = [&pressed](const QString &keys) {
            return QKeySequence(keys, QKeySequence::PortableText) == pressed;
        };
        if (entry.group == ListGroup && std::ranges::any_of(keysOf(entry.action), isPressed))
            return entry.action;
    }
    return None;
}

} // namespace sonavo
