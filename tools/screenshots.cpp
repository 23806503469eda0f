// Takes pictures of every screen of the real window, in both themes and at several sizes, without a display.
//
//     screenshots FOLDER SONGS
//
// SONGS is a folder of music with duplicates. Sizes are logical pixels; the pictures at 200 % have twice as
// many.
#include "actions/headless_desktop.h"
#include "session/duplicate_view_model.h"
#include "theme/palette.h"
#include "theme/theme_manager.h"

#include <QApplication>
#include <QCoroTimer>
#include <QDir>
#include <QEventLoop>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>
#include <functional>
#include <memory>

Q_IMPORT_QML_PLUGIN(SonavoPlugin)

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A player that makes no sound.
class MutePlayer final : public PreviewPlayer
{
public:
    void play() override {}
    void pause() override {}
    void setVolume(double) override {}
    void seek(qint64) override {}
    void releaseItem() override {}
};

class MuteDesktop final : public HeadlessDesktop
{
public:
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &) override
    {
        return std::make_unique<MutePlayer>();
    }
};

/// Pauses that let a scan come as far as it is to be seen, and never end a toast.
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
class Scene
{
public:
    Scene(QSize size, int pauses)
        : session(m_desktop, std::make_shared<StagedPauses>(pauses),
                  groupColors(ThemeManager::shared()->currentTheme()))
    {
        m_engine.addImportPath(u":/qt/qml"_s);
        m_engine.setInitialProperties({{u"viewModel"_s, QVariant::fromValue(&session)},
                                       {u"themeManager"_s, QVariant::fromValue(ThemeManager::shared())}});
        m_engine.load(QUrl(u"qrc:/qt/qml/Sonavo/MainWindow.qml"_s));
        window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
        window->resize(size);
    }

    void scan(const QString &folder)
    {
        session.startScan({QUrl::fromLocalFile(folder)});
        if (!QTest::qWaitFor([this] { return !session.isScanning(); }, 20'000))
            qFatal("the scan does not end");
    }

    void save(const QString &path) const
    {
        // Until what moves has come to rest.
        constexpr int REST = 1200; // milliseconds
        QTest::qWait(REST);
        if (!window->grabWindow().save(path))
            qFatal("the picture cannot be written");
        std::puts(qPrintable(path));
    }

    DuplicateViewModel session;
    QQuickWindow *window = nullptr;

private:
    MuteDesktop m_desktop;
    QQmlApplicationEngine m_engine;
};

struct Screen
{
    QString name;
    std::function<void(Scene &)> show;
    /// How many of its pauses a scan gets over.
    int pauses = 1000;
};

QList<Screen> allScreens(const QString &songs)
{
    const auto click = [](Scene &scene, QPoint at) {
        QTest::mouseClick(scene.window, Qt::LeftButton, {}, at);
    };
    return {
        {u"welcome"_s, [](Scene &) {}},
        // In the middle of the third step.
        {u"scan"_s, [songs](Scene &scene) { scene.session.startScan({QUrl::fromLocalFile(songs)}); }, 3},
        {u"warning"_s,
         [songs](Scene &scene) {
             const QUrl song = QUrl::fromLocalFile(songs + u"/none.mp3"_s);
             scene.session.importChosenItems(QList<QUrl>(12'000, song));
         }},
        {u"alert"_s,
         [songs](Scene &scene) {
             const QUrl song = QUrl::fromLocalFile(songs + u"/none.mp3"_s);
             scene.session.importDroppedItems(QList<QUrl>(500'001, song));
         }},
        {u"results"_s, [songs](Scene &scene) { scene.scan(songs); }},
        {u"playing"_s,
         [songs, click](Scene &scene) {
             scene.scan(songs);
             const Song song = scene.session.duplicateGroups().value(0).original;
             scene.session.togglePlayback(song);
             QTest::qWait(50);
             // Somewhere in the first song's row.
             click(scene, QPoint(scene.window->width() / 2, 168));
         }},
        {u"collapsed"_s,
         [songs, click](Scene &scene) {
             scene.scan(songs);
             QTest::qWait(50);
             click(scene, QPoint(scene.window->width() / 2, 130));
         }},
        {u"toast"_s,
         [songs](Scene &scene) {
             scene.scan(songs);
             scene.session.showToast(u"Moved 12 files to folder \u2022 Saved 84.3 MB"_s,
                                     DuplicateViewModel::ToastType::Success);
         }},
        {u"unique"_s, [songs](Scene &scene) { scene.scan(songs + u"/Laptop"_s); }},
    };
}

void takePictures(const QString &folder, const QString &songs, const QString &scale)
{
    for (const AppTheme theme : {AppTheme::Light, AppTheme::Dark}) {
        ThemeManager::shared()->setCurrentTheme(theme);
        const QString themeName = theme == AppTheme::Dark ? u"dark"_s : u"light"_s;
        for (const QSize size : {QSize(900, 600), QSize(1440, 900)}) {
            for (const Screen &screen : allScreens(songs)) {
                Scene scene(size, screen.pauses);
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
    if (argc != 3) {
        std::fputs("Usage: screenshots FOLDER SONGS\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1"));
    sonavo::takePictures(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]), scale);
    return 0;
}
