#pragma once

#include "generators/random_source.h"
#include "soak/changing_folder.h"
#include "soak/resources.h"
#include "soak/soaked_window.h"

#include <QHash>
#include <QTemporaryDir>

#include <functional>
#include <vector>

namespace sonavo {

/// Scans a changing folder again and again in one window, cancels, listens, deletes, and looks for what is
/// wrong afterwards.
class SoakRun
{
public:
    explicit SoakRun(std::uint64_t seed);

    /// Does the scans and prints what was found.
    /// @return whether all was well
    [[nodiscard]] bool run(int scans);

private:
    void restlessScan();
    /// To be called while nothing changes: scans, and compares with another session that does the same.
    void quietScan();
    void start(const QString &folder);
    void cancel();
    /// Waits for the scan's end and looks at what is shown then.
    void awaitResults();
    void useResults();
    void useOneRow();
    void dismissAlert();
    void clear();
    void checkWelcome();
    void checkResults();
    /// @param most milliseconds
    void waitAtRandom(std::size_t most);
    void settle();
    [[nodiscard]] QString someFolder();
    /// Adds those that are still there when the window has been drawn anew.
    void addLastingFaults(const std::function<QStringList()> &find);
    void addFault(const QString &fault);
    /// Prints faults and resources.
    [[nodiscard]] bool isWell() const;

    RandomSource m_random;
    QTemporaryDir m_music;
    QTemporaryDir m_emptyFolder;
    ChangingFolder m_folder;
    SoakedWindow m_window;
    DuplicateViewModel &m_session = m_window.session;

    /// What is being scanned, or was last.
    QString m_scanned;
    int m_scan = 0;
    int m_cancelled = 0;
    int m_finished = 0;
    int m_previews = 0;
    int m_deleted = 0;
    QHash<QString, int> m_faults;
    std::vector<Resource> m_resources;
};

} // namespace sonavo
