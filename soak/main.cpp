// Scans a changing folder many times in one window and looks for what that leaves behind.
//
//     sonavo_soak [SCANS [SEED]]
#include "soak/soak_run.h"
#include "testing/private_home.h"
#include "testing/sound_server.h"

#include <QApplication>
#include <QHash>

#include <sys/mount.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <random>
#include <sched.h>

namespace {

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
bool soakWithSound(int scans, std::uint64_t seed)
{
    const sonavo::SoundServer sound;
    return sonavo::soak(scans, seed);
}

} // namespace

int main(int argc, char *argv[])
{
    // What is mounted from now on goes with this process; without the rights nothing will be.
    if (::unshare(CLONE_NEWNS) == 0)
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    const int scans = argc > 1 ? std::atoi(argv[1]) : 200;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : std::random_device()();
    const sonavo::PrivateHome home;
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    qputenv("GST_REGISTRY", SONAVO_PLUGIN_LIST);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("LC_ALL", "C.UTF-8");
    // What was found is to be read also when the run ends in a crash.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QCoreApplication::setApplicationName(QStringLiteral("sonavo"));
    QCoreApplication::setOrganizationName(QStringLiteral("sonavo"));
    const QApplication application(argc, argv);
    qInstallMessageHandler(countWarning);
    std::printf("%d scans, seed %llu\n", scans, static_cast<unsigned long long>(seed));
    try {
        // Warnings of the window's end count, too.
        const bool isWell = soakWithSound(scans, seed) && warnings.isEmpty();
        for (auto warning = warnings.begin(); warning != warnings.end(); ++warning)
            std::printf("WARNING, %d times: %s\n", warning.value(), qPrintable(warning.key()));
        std::printf("%s\n", isWell ? "All is well." : "SOMETHING IS WRONG.");
        return isWell ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "sonavo_soak: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
