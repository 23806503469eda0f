#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sched.h>
#include <string>
#include <vector>

namespace sonavo {

/// A folder on another file system than the other temporary folders: the shared memory.
class OtherFileSystem
{
public:
    [[nodiscard]] std::filesystem::path path(const std::string &name = {}) const
    {
        return std::filesystem::path(m_folder.path().toStdString()) / name;
    }

private:
    QTemporaryDir m_folder{QStringLiteral("/dev/shm/sonavo-test-XXXXXX")};
};

/// Mounts that only this process sees, until the object is destroyed.
class PrivateMounts
{
public:
    PrivateMounts() = default;
    ~PrivateMounts()
    {
        for (; !m_mountPoints.empty(); m_mountPoints.pop_back())
            ::umount2(m_mountPoints.back().c_str(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(PrivateMounts)

    /// Whether this process may mount: as root, or where every user may in a namespace of his own.
    [[nodiscard]] static bool areAllowed()
    {
        static const bool hasNamespace = enterNamespace();
        return hasNamespace;
    }

    /// @param folder is made
    /// @return whether that was possible
    [[nodiscard]] bool mount(const std::filesystem::path &folder, const char *type, unsigned long flags = 0,
                             const std::string &source = "none", const std::string &options = {})
    {
        std::filesystem::create_directories(folder);
        if (::mount(source.c_str(), folder.c_str(), type, flags, options.c_str()) != 0)
            return false;
        m_mountPoints.push_back(folder);
        return true;
    }

private:
    static bool enterNamespace()
    {
        const uid_t user = ::geteuid();
        const gid_t group = ::getegid();
        if (::unshare(CLONE_NEWNS) != 0) {
            if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
                return false;
            std::ofstream("/proc/self/setgroups") << "deny";
            std::ofstream("/proc/self/uid_map") << user << ' ' << user << " 1";
            std::ofstream("/proc/self/gid_map") << group << ' ' << group << " 1";
        }
        return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    std::vector<std::filesystem::path> m_mountPoints;
};

} // namespace sonavo
