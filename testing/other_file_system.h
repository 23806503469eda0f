#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <sys/mount.h>

namespace sonavo {

/// A folder on another file system than the other temporary folders: the shared memory.
class OtherFileSystem
{
public:
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder{QStringLiteral("/dev/shm/sonavo-test-XXXXXX")};
};

/// A file system of its own with little room, where the rights allow one to be mounted.
class SmallFileSystem
{
public:
    explicit SmallFileSystem(const char *size)
        : m_isMounted(::mount("tmpfs", QFile::encodeName(m_folder.path()).constData(), "tmpfs", 0,
                              (QByteArray("size=") + size).constData()) == 0)
    {}
    ~SmallFileSystem()
    {
        if (m_isMounted)
            ::umount2(QFile::encodeName(m_folder.path()).constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(SmallFileSystem)

    [[nodiscard]] bool isMounted() const { return m_isMounted; }
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    bool m_isMounted;
};

} // namespace sonavo
