#pragma once

#include "session/duplicate_view_model.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace sonavo {

/// Every file in a folder and below, but no list of moved files.
inline QStringList filesIn(const QString &folder)
{
    QStringList files;
    for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = it.next();
        if (!file.endsWith(QStringLiteral("/Moved files.csv")))
            files.append(file);
    }
    return files;
}

/// A temporary folder for copies of a real song.
class MusicFolder
{
public:
    /// @param name may begin with folders, which are made
    void addSong(const QString &name) const
    {
        const QString source = QStringLiteral(SONAVO_SAMPLES "/Albums/Ada Finch - Glass Road.flac");
        ASSERT_TRUE(QDir().mkpath(QFileInfo(pathOf(name)).path()));
        ASSERT_TRUE(QFile::copy(source, pathOf(name)));
    }
    /// Adds groups of as many songs as the numbers say: "0/Artist0 - Title0.flac", "1/Artist0 - Title0.flac".
    void addGroups(const QList<int> &sizes) const
    {
        for (qsizetype i = 0; i < sizes.size(); ++i) {
            for (int copy = 0; copy < sizes[i]; ++copy)
                addSong(QStringLiteral("%1/Artist%2 - Title%2.flac").arg(copy).arg(i));
        }
    }
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QUrl urlOf(const QString &name) const { return QUrl::fromLocalFile(pathOf(name)); }
    [[nodiscard]] QList<QUrl> urls() const { return {QUrl::fromLocalFile(path())}; }

private:
    QTemporaryDir m_folder;
};

/// Lets the event loop handle what is pending.
inline void settle()
{
    QTest::qWait(20);
}

/// Runs the event loop until the scan is over, with all that it still publishes.
inline void finishScan(const DuplicateViewModel &session)
{
    ASSERT_TRUE(QTest::qWaitFor([&session] { return !session.isScanning(); }, 20'000));
    settle();
}

} // namespace sonavo
