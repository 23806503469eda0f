#pragma once

#include <QStringView>

namespace sonavo {

/// The last component of a path.
[[nodiscard]] inline QStringView fileNameOf(QStringView path)
{
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

/// The extension of a path's last component, without its dot; empty when there is none. A leading dot starts
/// no extension.
[[nodiscard]] inline QStringView pathExtension(QStringView path)
{
    const QStringView name = fileNameOf(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1) : QStringView();
}

} // namespace sonavo
