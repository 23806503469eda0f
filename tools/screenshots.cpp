// Takes pictures of every screen of the real window, in both themes at several sizes, and with high contrast
// at the smallest, without a display.
//
//     screenshots FOLDER SONGS [LANGUAGE]
//
// SONGS is a folder of music with duplicates. Sizes are logical pixels; the pictures at 200 % have twice as
// many. The language is a code such as "de" or "ar"; English unless given.
#include "language/language.h"
#include "session/clean_up_text.h"
#include "session/file_job.h"
#include "testing/fake_desktop.h"
#include "testing/window_driver.h"
#include "theme/theme_manager.h"

#include <QApplication>
#include <QCoroTimer>
#include <QDirIterator>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <cstdio>
#include <functional>
#include <memory>
#include <tuple>
#include <utility>

namespace sonavo {
namespace {

/// A number of pauses that take no time; the others never end, nor does a toast.
class StagedPauses final : public Pauses
{
public:
    explicit StagedPauses(int count)
        : m_left(count)
    {}
    [[nodiscard]] QCoro::Task<> wait(std::chrono::milliseconds length) override
    {
        const bool isShort = length < std::chrono::seconds(1) && m_left-- > 0;
        co_await QCoro::sleepFor(isShort ? std::chrono::milliseconds(0) : std::chrono::hours(1));
    }

private:
    int m_left;
};

/// One window with one session, for one picture.
class Scene : public WindowDriver
{
public:
    Scene(Desktop &desktop, QSize size, int pauses)
        : WindowDriver(desktop, std::make_shared<StagedPauses>(pauses), size)
    {}

    void scan(const QString &folder)
    {
        session.startScan({QUrl::fromLocalFile(folder)});
        if (!waitFor([this] { return !session.isScanning(); }))
            qFatal("the scan does not end");
    }

    void finishJob() const
    {
        if (!waitFor([this] { return !session.isCleaningUp(); }))
            qFatal("the clean-up does not end");
    }

    /// Blocks the calling thread.
    void waitUntilSaved() { m_isSaved.acquire(); }

    void save(const QString &path)
    {
        // Until all animations are over.
        constexpr int REST_MS = 1200;
        QTest::qWait(REST_MS);
        if (!window->grabWindow().save(path))
            qFatal("the picture cannot be written");
        std::puts(qPrintable(path));
        session.stopCleanUp();
        m_isSaved.release();
        finishJob();
    }

private:
    QSemaphore m_isSaved;
};

void copyFolder(const QString &from, const QString &to)
{
    for (QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = it.next();
        const QString copy = to + file.mid(from.size());
        if (!QDir().mkpath(QFileInfo(copy).path()) || !QFile::copy(file, copy))
            qFatal("the songs cannot be copied");
    }
}

struct Screen
{
    QString name;
    std::function<void(Scene &)> show;
    /// Pauses after which a scan stands still.
    int pauses = 1000;
};

QList<Screen> scanScreens(const QString &songs)
{
    const auto click = [](Scene &scene, QPoint at) {
        QTest::mouseClick(scene.window, Qt::LeftButton, {}, at);
    };
    return {
        {u"welcome"_s, [](Scene &) {}},
        // In the middle of the third step.
        {u"scan"_s, [songs](Scene &scene) { scene.session.startScan({QUrl::fromLocalFile(songs)}); }, 3},
        // While the folders are walked.
        {u"walk"_s, [songs](Scene &scene) { scene.session.startScan({QUrl::fromLocalFile(songs)}); }, 0},
        {u"warning"_s,
         [songs](Scene &scene) {
             const QUrl song = QUrl::fromLocalFile(songs + u"/none.mp3"_s);
             scene.session.importChosenItems(QList<QUrl>(12'000, song));
         }},
        {u"alert"_s,
         [songs](Scene &scene) {
             const QUrl song = QUrl::fromLocalFile(songs + u"/none.mp3"_s);
             scene.session.importDroppedItems(QList<QUrl>(500'001, song));
             if (!Scene::waitFor([&scene] { return scene.session.showAlert(); }))
                 qFatal("there is no alert");
         }},
        {u"results"_s, [songs](Scene &scene) { scene.scan(songs); }},
        {u"further"_s,
         [songs](Scene &scene) {
             scene.scan(songs);
             scene.session.findMore();
             scene.finishJob();
         }},
        {u"playing"_s,
         [songs, click](Scene &scene) {
             scene.scan(songs);
             const Song song = scene.session.duplicateGroups().value(0).original;
             scene.session.togglePlayback(song);
             QTest::qWait(50);
             // Somewhere in the first song's row.
             click(scene, QPoint(scene.window->width() / 2, 212));
         }},
        {u"collapsed"_s,
         [songs, click](Scene &scene) {
             scene.scan(songs);
             QTest::qWait(50);
             click(scene, QPoint(scene.window->width() / 2, 174));
         }},
        {u"toast"_s,
         [songs](Scene &scene) {
             scene.scan(songs);
             scene.session.showToast(
                 toastText({.target = CleanUpTarget::Folder, .moved = 12, .saved = 84'300'000}),
                 DuplicateViewModel::ToastType::Success);
         }},
        {u"folders"_s,
         [songs](Scene &scene) {
             QList<QUrl> folders;
             for (const QString &folder : {u"/Laptop"_s, u"/Phone"_s, u"/Albums"_s})
                 folders.append(QUrl::fromLocalFile(songs + folder));
             scene.session.importDrop(folders);
             if (!scene.waitFor(
                     [&scene] { return scene.session.songCount() > 0 && !scene.session.isScanning(); }))
                 qFatal("the drop is not scanned");
         }},
        {u"shortcuts"_s,
         [](Scene &scene) {
             QTest::qWait(50);
             QTest::keyClick(scene.window, Qt::Key_F1);
         }},
        {u"unique"_s, [songs](Scene &scene) { scene.scan(songs + u"/Laptop"_s); }},
    };
}

QList<Screen> cleanUpScreens(const QString &songs)
{
    return {
        {u"cleaning"_s,
         [songs](Scene &scene) {
             scene.scan(songs);
             // Nothing is moved before the program ends: the job stops first.
             fileJobThread().start([&scene] { scene.waitUntilSaved(); });
             scene.session.cleanupAll();
         }},
        {u"cleaned"_s,
         [songs](Scene &scene) {
             const QTemporaryDir copy;
             copyFolder(songs, copy.path());
             scene.scan(copy.path());
             scene.session.cleanupAll();
             scene.finishJob();
         }},
        {u"failed"_s,
         [songs](Scene &scene) {
             const QTemporaryDir copy;
             copyFolder(songs, copy.path());
             scene.scan(copy.path());
             scene.session.togglePlayback(scene.session.duplicateGroups().value(0).original);
             for (const DuplicateGroup &group : scene.session.duplicateGroups().mid(1))
                 QFile::remove(group.original.path);
             scene.session.cleanupAll();
             scene.finishJob();
         }},
    };
}

void takePictures(const QString &folder, const QString &songs, const QString &scale)
{
    const std::tuple<AppTheme, bool, QString> looks[] = {
        {AppTheme::Light, false, u"light"_s},
        {AppTheme::Dark, false, u"dark"_s},
        {AppTheme::Light, true, u"light-contrast"_s},
        {AppTheme::Dark, true, u"dark-contrast"_s},
    };
    for (const auto &[theme, isHighContrast, themeName] : looks) {
        ThemeManager::shared()->setCurrentTheme(theme);
        ThemeManager::shared()->setWishes({.isHighContrast = isHighContrast});
        QList<QSize> sizes{QSize(900, 600)};
        if (!isHighContrast)
            sizes.append(QSize(1440, 900));
        for (const QSize size : std::as_const(sizes)) {
            for (const Screen &screen : scanScreens(songs) + cleanUpScreens(songs)) {
                FakeDesktop desktop;
                Scene scene(desktop, size, screen.pauses);
                screen.show(scene);
                scene.save(u"%1/%2-%3-%4%5.png"_s.arg(folder, screen.name, themeName)
                               .arg(size.width())
                               .arg(scale == u"1"_s ? QString() : u"@%1x"_s.arg(scale)));
            }
        }
    }
}

} // namespace
} // namespace sonavo

int main(int argc, char *argv[])
{
    if (argc < 3 || argc > 4) {
        std::fputs("Usage: screenshots FOLDER SONGS [LANGUAGE]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    // For the Trash.
    qputenv("XDG_DATA_HOME", QFile::encodeName(settings.path()));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    sonavo::useLanguage(QLocale(argc > 3 ? QString::fromLocal8Bit(argv[3]) : QStringLiteral("en")));
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1"));
    const QString songs = QDir(QString::fromLocal8Bit(argv[2])).absolutePath();
    sonavo::takePictures(QString::fromLocal8Bit(argv[1]), songs, scale);
    return 0;
}
