#pragma once

#include <QFile>
#include <QString>
#include <QStringView>

namespace sonavo {

/// What file systems allow, in bytes.
inline constexpr qsizetype MAX_FILE_NAME = 255;

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

/// A stem and what follows it as one name. The stem is cut after a whole character where the name would take
/// more than `maxBytes` in the file system's encoding.
[[nodiscard]] inline QString joinedFileName(QString stem, const QString &suffix, qsizetype maxBytes)
{
    while (!stem.isEmpty() && QFile::encodeName(stem + suffix).size() > maxBytes)
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + suffix;
}

} // namespace sonavo
