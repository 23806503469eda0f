#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace sonavo {

/// An empty home folder that this process uses from then on, also for its settings, Trash and music. The
/// session bus is the socket "bus" in it, where nobody listens yet.
class PrivateHome
{
public:
    PrivateHome()
    {
        for (const char *variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_MUSIC_DIR"})
            qunsetenv(variable);
        qputenv("HOME", QFile::encodeName(m_folder.path()));
        qputenv("DBUS_SESSION_BUS_ADDRESS",
                "unix:path=" + QFile::encodeName(m_folder.filePath(QStringLiteral("bus"))));
    }
    Q_DISABLE_COPY_MOVE(PrivateHome)

    std::filesystem::path path(const std::string &name = {}) const
    {
        return std::filesystem::path(m_folder.path().toStdString()) / name;
    }
    /// Writes a file, and creates its folders.
    std::filesystem::path add(const std::string &name, const std::string &content = "song") const
    {
        return addFile(path(name), content);
    }

    static std::filesystem::path addFile(const std::filesystem::path &file, const std::string &content)
    {
        std::filesystem::create_directories(file.parent_path());
        if (!(std::ofstream(file) << content << std::flush))
            throw std::runtime_error("cannot write " + file.string());
        return file;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace sonavo
