#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

namespace sonavo {

/// Notes the folders that the system is asked to open instead of opening them.
class OpenedFolders : public QObject
{
    Q_OBJECT

public:
    OpenedFolders() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~OpenedFolders() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Q_DISABLE_COPY_MOVE(OpenedFolders)

    Q_INVOKABLE void open(const QUrl &url) { urls.append(url); }

    QList<QUrl> urls;
};

} // namespace sonavo
