#include "theme/stored_settings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>

namespace sonavo {
namespace {

/// QSettings opens a file without looking at it, and reads it to its end.
bool isReadableAtOnce(const QString &path)
{
    constexpr qint64 MAX_SIZE = 1024 * 1024;
    const QFileInfo file(path);
    return !file.exists() || (file.isFile() && file.size() <= MAX_SIZE);
}

/// Of the user and of the system, as QSettings looks for them.
QStringList settingsFiles()
{
    const QString organization = QCoreApplication::organizationName();
    QStringList files;
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
        files +=
            QStringLiteral("%1/%2/%3.conf").arg(folder, organization, QCoreApplication::applicationName());
        files += QStringLiteral("%1/%2.conf").arg(folder, organization);
    }
    return files;
}

} // namespace

QSettings *openStoredSettings(QObject *parent)
{
    const QStringList files = settingsFiles();
    return std::ranges::all_of(files, isReadableAtOnce) ? new QSettings(parent) : nullptr;
}

} // namespace sonavo
