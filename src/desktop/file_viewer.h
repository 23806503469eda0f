#pragma once

#include <QObject>

#include <chrono>
#include <functional>

namespace sonavo {

/// Shows files in the system's file manager (org.freedesktop.FileManager1 on the session bus). Where there is
/// none, or it refuses, the file's folder is opened by the default application instead, unless that is this
/// program (by QGuiApplication::desktopFileName()). A file manager that was asked is waited for, however long
/// it takes to start: otherwise both could open a window. Main thread only.
class FileViewer : public QObject
{
public:
    /// @param timeout for the bus to accept the connection; then the folder is opened
    explicit FileViewer(std::chrono::milliseconds timeout = std::chrono::seconds(5));

    /// Shows a file, selected in its folder. Returns at once and needs the event loop afterwards; requests
    /// that are still pending end with this object.
    /// @param onFailure called when nothing could be asked to show it
    void show(const QString &path, std::function<void()> onFailure = {});

private:
    std::chrono::milliseconds m_timeout;
};

} // namespace sonavo
