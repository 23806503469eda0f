#pragma once

#include "session/duplicate_view_model.h"
#include "theme/theme_colors.h"
#include "theme/theme_manager.h"

#include <QQmlEngine>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

// The types of other rooms that the views know. Those rooms know nothing of QML.

struct DuplicateViewModelInQml
{
    Q_GADGET
    QML_FOREIGN(sonavo::DuplicateViewModel)
    QML_NAMED_ELEMENT(DuplicateViewModel)
    // For ToastType.
    QML_EXTENDED_NAMESPACE(sonavo::Notices)
    QML_UNCREATABLE("The application has one session.")
};

struct PreviewPlayerInQml
{
    Q_GADGET
    QML_FOREIGN(sonavo::PreviewPlayer)
    QML_ANONYMOUS
};

struct SongInQml
{
    Q_GADGET
    QML_FOREIGN(sonavo::Song)
    QML_ANONYMOUS
};

struct DuplicateGroupInQml
{
    Q_GADGET
    QML_FOREIGN(sonavo::DuplicateGroup)
    QML_ANONYMOUS
};

struct ThemeManagerInQml
{
    Q_GADGET
    QML_FOREIGN(sonavo::ThemeManager)
    QML_NAMED_ELEMENT(ThemeManager)
    QML_UNCREATABLE("The application has one theme.")
};

struct ColorsInQml
{
    Q_GADGET
    QML_FOREIGN(sonavo::ThemeColors)
    QML_NAMED_ELEMENT(Colors)
    QML_SINGLETON

public:
    static ThemeColors *create(QQmlEngine *engine, QJSEngine *)
    {
        return new ThemeColors(*ThemeManager::shared(), engine);
    }
};

} // namespace sonavo
