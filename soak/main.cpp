// Scans a changing folder many times in one window and looks for what that leaves behind.
//
//     sonavo_soak [SCANS [SEED]]
#include "soak/soak_run.h"
#include "testing/sound_server.h"

#include <QApplication>
#include <QHash>
#include <QTemporaryDir>

#include <sys/mount.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <random>
#include <sched.h>
#include <string>

namespace {

/// Nothing of the person's is read or changed: not the home folder, its Trash and settings, nor the session
/// bus.
void usePrivateHome(const QString &home)
{
    for (const char *kept : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_MUSIC_DIR"})
        qunsetenv(kept);
    for (const char *folder : {"HOME", "XDG_RUNTIME_DIR"})
        qputenv(folder, QFile::encodeName(home));
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + QFile::encodeName(home) + "/bus");
    qputenv("GST_REGISTRY", SONAVO_PLUGIN_LIST);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
}

/// What is mounted from now on goes with this process; without the rights nothing will be.
void keepMountsPrivate()
{
    if (::unshare(CLONE_NEWNS) == 0)
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
}

std::mutex mutex;
QHash<QString, int> warnings;

/// Counts what Qt, the views and the platform warn of, in whatever thread, and prints it the first time.
void countWarning(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    const std::unique_lock lock(mutex);
    if (++warnings[message] == 1)
        std::printf("WARNING (%s): %s\n", context.category, qPrintable(message));
}

/// @return whether all was well
bool soak(int scans, std::uint64_t seed)
{
    const sonavo::SoundServer sound;
    return sonavo::SoakRun(seed).run(scans);
}

} // namespace

int main(int argc, char *argv[])
{
    keepMountsPrivate();
    const int scans = argc > 1 ? std::atoi(argv[1]) : 200;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : std::random_device()();
    if (scans <= 0) {
        std::fputs("usage: sonavo_soak [SCANS [SEED]]\n", stderr);
        return EXIT_FAILURE;
    }
    const QTemporaryDir home;
    usePrivateHome(home.path());
    std::setlocale(LC_ALL, "C.UTF-8");
    qputenv("LC_ALL", "C.UTF-8");
    // What has been found is to be read also when the run ends in a crash.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QCoreApplication::setApplicationName(QStringLiteral("sonavo"));
    QCoreApplication::setOrganizationName(QStringLiteral("sonavo"));
    const QApplication application(argc, argv);
    qInstallMessageHandler(countWarning);
    std::printf("%d scans, seed %llu\n", scans, static_cast<unsigned long long>(seed));
    try {
        // What the window's end warns of counts, too.
        const bool isWell = soak(scans, seed) && warnings.isEmpty();
        for (auto warning = warnings.begin(); warning != warnings.end(); ++warning)
            std::printf("WARNING, %d times: %s\n", warning.value(), qPrintable(warning.key()));
        std::printf("%s\n", isWell ? "All is well." : "SOMETHING IS WRONG.");
        return isWell ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "sonavo_soak: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
