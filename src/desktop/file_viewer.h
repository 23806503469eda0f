#pragma once

#include <QObject>

#include <chrono>

namespace sonavo {

/// Asks the system's file viewer (org.freedesktop.FileManager1 on the session bus) to show files; where none
/// does so, their folder is opened by whatever opens folders. Main thread only.
class FileViewer : public QObject
{
public:
    /// @param patience for how long an answer is waited for before the folder is opened
    explicit FileViewer(std::chrono::milliseconds patience = std::chrono::seconds(5));

    /// Shows a file, selected. Returns at once; what happens afterwards takes the event loop, and ends with
    /// this.
    void show(const QString &path);

private:
    std::chrono::milliseconds m_patience;
};

} // namespace sonavo
