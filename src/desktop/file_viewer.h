#pragma once

#include <QObject>

#include <chrono>

namespace sonavo {

/// Shows files in the system's file manager (org.freedesktop.FileManager1 on the session bus). If that fails
/// or does not answer in time, the file's folder is opened by the default application instead. Main thread
/// only.
class FileViewer : public QObject
{
public:
    /// @param timeout from the call of show() to the fallback
    explicit FileViewer(std::chrono::milliseconds timeout = std::chrono::seconds(5));

    /// Shows a file, selected in its folder. Returns at once and needs the event loop afterwards; requests
    /// that are still pending end with this object.
    void show(const QString &path);

private:
    std::chrono::milliseconds m_timeout;
};

} // namespace sonavo
