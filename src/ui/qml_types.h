#pragma once

#include "session/duplicate_view_model.h"
#include "theme/motion.h"
#include "theme/theme_colors.h"
#include "theme/theme_manager.h"

#include <QQmlEngine>
#include <QtQml/qqmlregistration.h>

namespace sonavo {

// The types of other modules that views use. Those modules know nothing of QML.

struct DuplicateViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(sonavo::DuplicateViewModel)
    QML_NAMED_ELEMENT(DuplicateViewModel)
    // For ToastType.
    QML_EXTENDED_NAMESPACE(sonavo::Notices)
    QML_UNCREATABLE("The application has one session.")
};

struct PreviewPlayerForeign
{
    Q_GADGET
    QML_FOREIGN(sonavo::PreviewPlayer)
    QML_ANONYMOUS
};

struct SongForeign
{
    Q_GADGET
    QML_FOREIGN(sonavo::Song)
    QML_ANONYMOUS
};

struct DuplicateGroupForeign
{
    Q_GADGET
    QML_FOREIGN(sonavo::DuplicateGroup)
    QML_ANONYMOUS
};

struct ThemeManagerForeign
{
    Q_GADGET
    QML_FOREIGN(sonavo::ThemeManager)
    QML_NAMED_ELEMENT(ThemeManager)
    QML_UNCREATABLE("The application has one theme.")
};

struct ColorsForeign
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

struct MotionForeign
{
    Q_GADGET
    QML_FOREIGN(sonavo::Motion)
    QML_NAMED_ELEMENT(Motion)
    QML_SINGLETON

public:
    static Motion *create(QQmlEngine *engine, QJSEngine *)
    {
        return new Motion(*ThemeManager::shared(), engine);
    }
};

} // namespace sonavo
