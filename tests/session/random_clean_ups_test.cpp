#include "analysis/find_further.h"
#include "generators/random_source.h"
#include "generators/small_audio.h"
#include "session/duplicate_view_model.h"
#include "testing/fake_desktop.h"
#include "testing/other_file_system.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <thread>

namespace sonavo {
namespace {

namespace fs = std::filesystem;
using namespace Qt::Literals::StringLiterals;

/// Files and links by their paths, with their last line and a hash, or "-> target".
using Files = std::map<fs::path, std::string>;

constexpr uid_t ROOT = 0;
constexpr uid_t ORDINARY_USER = 65534;

/// Root may do everything; an ordinary user meets folders that he cannot write to.
void become(uid_t user)
{
    static const bool isRoot = ::geteuid() == ROOT;
    if (isRoot && ::seteuid(user) == 0)
        ::prctl(PR_SET_DUMPABLE, 1);
}

std::string shortened(const std::string &content)
{
    return content.substr(content.find_last_of('\n') + 1) + " #" +
           std::to_string(std::hash<std::string>()(content));
}

std::string contentOf(const fs::path &path)
{
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return shortened(content.str());
}

fs::path pathOf(const Song &song)
{
    return song.path.toStdString();
}

/// What is in the first and not, or with another content, in the second.
Files without(const Files &files, const Files &others)
{
    Files rest;
    std::ranges::set_difference(files, others, std::inserter(rest, rest.end()));
    return rest;
}

std::multiset<std::string> contentsOf(const Files &files)
{
    std::multiset<std::string> contents;
    for (const auto &[path, content] : files)
        contents.insert(content);
    return contents;
}

std::string resolved(const Files &files, const fs::path &path)
{
    auto file = files.find(path);
    for (int links = 0; links < 9 && file != files.end() && file->second.starts_with("-> "); ++links)
        file = files.find(file->second.substr(3));
    return file == files.end() ? std::string() : file->second;
}

std::string linesOf(const QList<Song> &songs, const QList<DuplicateGroup> &groups)
{
    std::string lines;
    for (const Song &song : songs)
        lines += song.path.toStdString() + '\n';
    for (const DuplicateGroup &group : groups) {
        lines += group.id.toString().toStdString() + '\n';
        for (const Song &member : membersOf(group))
            lines += "  " + member.path.toStdString() + '\n';
    }
    return lines;
}

/// What a user says about a result: how it is found, which song is kept, or which is no duplicate.
struct Decision
{
    std::optional<SearchDepth> depth = {};
    QUuid kept = {};
    QUuid excluded = {};
};

/// Two disks with music, and what other programs and the user's other hand do there. What these remove goes
/// to an attic: no content is destroyed unnoticed.
class Disks
{
public:
    Disks(std::vector<fs::path> roots, std::uint64_t seed)
        : m_roots(std::move(roots))
        , m_random(seed)
    {
        unblock();
        for (const fs::path &root : m_roots) {
            for (const auto &entry : fs::directory_iterator(root))
                fs::remove_all(entry.path());
            for (const char *folder : {"music/a", "music/b", "target", "attic"})
                fs::create_directories(root / folder);
            for (int i = 0; i < 24; ++i)
                write(root / (m_random.isOneIn(2) ? "music/a" : "music/b") / anyName(), O_EXCL);
        }
    }

    /// Every content that somebody has made and nobody has destroyed.
    std::set<std::string> contents;

    [[nodiscard]] Files files() const
    {
        become(ROOT);
        Files files;
        for (const fs::path &root : m_roots) {
            for (const auto &entry : fs::recursive_directory_iterator(root)) {
                const fs::path &path = entry.path();
                const bool isOfNoSong = path.extension() == ".csv" || path.extension() == ".trashinfo" ||
                                        path.filename() == "filler" ||
                                        path.parent_path().filename() == "sonavo";
                if (entry.is_symlink())
                    files[path] = "-> " + fs::read_symlink(path).string();
                else if (entry.is_regular_file() && !isOfNoSong)
                    files[path] = contentOf(path);
            }
        }
        become(ORDINARY_USER);
        return files;
    }

    /// What may happen at any moment.
    void meddle()
    {
        const fs::path file = any(false);
        const fs::path other = any(false);
        const fs::path folder = any(true);
        const auto move = [](const fs::path &from, const fs::path &to, unsigned flags = RENAME_NOREPLACE) {
            ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags);
        };
        switch (file.empty() ? 0 : m_random.below(8)) {
        case 0:
            return write(folder / anyName(), O_EXCL);
        case 1:
            return write(file.parent_path() / other.filename(), O_EXCL);
        case 2:
            return move(file, folder / other.filename());
        case 3:
            return move(file, other, RENAME_EXCHANGE);
        case 4:
            for (const fs::path &root : m_roots) // one of them is another disk
                move(file, root / "attic" / std::to_string(++m_number));
            return;
        case 5:
            return move(folder, any(true) / std::to_string(++m_number));
        case 6:
            if (::symlink(other.c_str(), (folder / file.filename()).c_str()) == 0)
                contents.insert("-> " + other.string());
            return;
        default:
            ::link(file.c_str(), (folder / file.filename()).c_str());
        }
    }

    /// What may happen only while no file is being moved: it can destroy a content.
    void meddleAtRest()
    {
        const fs::path file = any(false);
        switch (file.empty() ? 7 : m_random.below(14)) {
        case 0:
        case 1:
            contents.erase(contentOf(file));
            return write(file, O_TRUNC);
        case 2:
            contents.erase(contentOf(file));
            ::truncate(file.c_str(), 0);
            return;
        case 3:
            ::chmod(file.parent_path().c_str(), 0555);
            return;
        case 4:
            ::chmod(file.c_str(), 0);
            return;
        case 5:
            if (std::ofstream filler(m_roots.back() / "filler"); m_roots.size() > 1)
                while (filler << std::string(4096, '.') << std::flush) {
                }
            return;
        case 6:
            return unblock();
        default:
            meddle();
        }
    }

    void unblock() const
    {
        for (const fs::path &root : m_roots) {
            fs::remove(root / "filler");
            for (const auto &entry : fs::recursive_directory_iterator(root)) {
                if (!entry.is_symlink())
                    fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add);
            }
        }
    }

private:
    /// A file or a folder; never one of the program's own, and none in the attic.
    [[nodiscard]] fs::path any(bool isFolder)
    {
        std::vector<fs::path> found;
        std::error_code error;
        for (const fs::path &root : m_roots) {
            for (const char *place : {"music", "target", ".local/share/Trash/files", ".Trash-65534/files"}) {
                if (isFolder && fs::exists(root / place, error))
                    found.push_back(root / place);
                for (fs::recursive_directory_iterator it(root / place, error), end; it != end;
                     it.increment(error)) {
                    const std::string name = it->path().filename();
                    const bool isItsOwn = name.starts_with(".sonavo") || name.find(".csv") != name.npos;
                    if (isFolder == (!it->is_symlink(error) && it->is_directory(error)) && !isItsOwn)
                        found.push_back(it->path());
                }
            }
        }
        std::ranges::sort(found);
        return found.empty() ? fs::path() : found[m_random.below(found.size())];
    }

    [[nodiscard]] std::string anyName()
    {
        const char title = static_cast<char>('A' + m_random.below(6));
        return std::string("Band ") + title + " - " + std::string(5, title) + ' ' +
               std::to_string(++m_number % 7) + ".mp3";
    }

    void write(const fs::path &file, int flags)
    {
        ++m_number;
        const std::string name = file.filename();
        const double seconds = 100.0 + 20.0 * (name.size() > 5 ? name[5] - 'A' : 0);
        // Two files never have the same size: where their times are equal, only that tells them apart.
        const std::string content = smallAudio(u"MP3"_s, seconds).content.toStdString() +
                                    std::string(m_number, '.') + '\n' + std::to_string(m_number);
        const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | flags, 0600);
        if (::write(descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size()))
            contents.insert(shortened(content));
        ::close(descriptor);
    }

    const std::vector<fs::path> m_roots;
    RandomSource m_random;
    std::size_t m_number = 0;
};

/// Sessions in which everything happens in any order, and what must hold after each operation.
class RandomCleanUps : public testing::Test
{
protected:
    RandomCleanUps()
    {
        const fs::path mountPoint = m_mountPoint.path().toStdString();
        const bool isMounted =
            PrivateMounts::areAllowed() && m_mounts.mount(mountPoint, "tmpfs", 0, "none", "size=4m,mode=777");
        become(ORDINARY_USER);
        m_home.emplace();
        m_roots = {m_home->path()};
        if (isMounted)
            m_roots.push_back(mountPoint);
    }
    ~RandomCleanUps() override
    {
        if (m_disks)
            m_disks->unblock();
        m_home.reset();
        become(ROOT);
    }
    Q_DISABLE_COPY_MOVE(RandomCleanUps)

    /// From a first scan until everything is undone.
    void playEpisode(std::uint64_t seed)
    {
        m_random = RandomSource(seed);
        m_disks.emplace(m_roots, seed + 1);
        m_areOthersThere = m_random.isOneIn(2);
        m_areOthersBusy = m_areOthersThere && m_random.isOneIn(2);
        m_hasBeenDisturbed = false;
        m_moved.clear();
        m_log = "Seed " + std::to_string(seed) + ":\n";
        m_session.emplace(m_desktop, std::make_shared<InstantPauses>(), QList<Color>{Color()});
        QObject::connect(&*m_session, &DuplicateViewModel::toastChanged, &*m_session,
                         [this] { m_toasts += m_session->toastMessage().toStdString() + '\n'; });
        const Files atFirst = m_disks->files();
        scan();
        for (std::size_t i = m_random.below(40); i > 0 && !HasFailure(); --i)
            performAny();
        if (m_random.isOneIn(5))
            endWhileFilesMove();
        else
            undoEverything(atFirst);
        m_session.reset();
        if (HasFailure())
            std::cout << m_log;
    }

    int operations = 0;

private:
    void performAny()
    {
        while (m_areOthersThere && m_random.isOneIn(2))
            m_disks->meddleAtRest();
        QList<Song> duplicates;
        QList<Song> songs;
        for (const DuplicateGroup &group : m_session->duplicateGroups()) {
            duplicates += group.duplicates;
            songs += membersOf(group);
        }
        const fs::path target = m_roots[m_random.below(m_roots.size())] / "target";
        const DuplicateGroup group =
            m_session->duplicateGroups().value(static_cast<qsizetype>(m_random.below(8)));
        switch (m_random.weighted({8, 2, 2, 8, 2, 1, 5, 4, 4})) {
        case 0:
            if (const Song song = songs.value(static_cast<qsizetype>(m_random.below(60)));
                !song.path.isEmpty())
                remove("Delete " + song.path.toStdString(), {song}, [&] { m_session->deleteSong(song); });
            return;
        case 1:
            return remove("Cleanup All", duplicates, [this] { m_session->cleanupAll(); });
        case 2:
            m_desktop.onChooseFolder = [&target] { return QString::fromStdString(target.string()); };
            return remove("Move", duplicates, [this] { m_session->moveDuplicatesToFolder(); });
        case 3:
            return undo();
        case 4:
            duplicates.clear();
            for (const SongFailure &failure : m_session->cleanUpFailures())
                duplicates.append(failure.song);
            return remove("Try Again", duplicates, [this] { m_session->retryCleanUp(); });
        case 5:
            if (m_random.isOneIn(2))
                m_session->clearAll();
            return scan();
        case 6:
            return decide(songs.value(static_cast<qsizetype>(m_random.below(24))));
        case 7:
            m_desktop.onChooseFolder = [&target] { return QString::fromStdString(target.string()); };
            if (m_random.isOneIn(2))
                return remove("Trash group", group.duplicates,
                              [&] { m_session->trashGroup(group.original); });
            return remove("Move group", group.duplicates,
                          [&] { m_session->moveGroupToFolder(group.original); });
        default:
            if (group.duplicates.isEmpty())
                return;
            const Song &song = m_random.isOneIn(2) ? group.original : group.duplicates.last();
            m_random.isOneIn(2) ? m_session->togglePlayback(song) : m_session->comparePlayback(song);
            m_log += "Play " + song.path.toStdString() + '\n';
        }
    }

    void decide(const Song &song)
    {
        const bool isFurther = m_session->isFurtherResult();
        switch (m_random.below(3)) {
        case 0:
            return decide("Look elsewhere",
                          {.depth = isFurther ? SearchDepth::FourPasses : SearchDepth::Further},
                          [&] { isFurther ? m_session->returnToFirstResult() : m_session->findMore(); });
        case 1:
            return decide("Keep " + song.path.toStdString(), {.kept = song.id},
                          [&] { m_session->keepSong(song); });
        default:
            return decide("Exclude " + song.path.toStdString(), {.excluded = song.id},
                          [&] { m_session->excludeFromDuplicates(song); });
        }
    }

    void decide(const std::string &name, const Decision &decision, const std::function<void()> &operation)
    {
        const Files before = m_disks->files();
        const bool isQuiet = perform(name, operation);
        const Files after = m_disks->files();
        EXPECT_TRUE(!isQuiet || after == before) << "it has touched files";
        // Nothing is said of what was stopped.
        if (!m_toasts.empty() && !m_toasts.starts_with("No "))
            m_decisions.push_back(decision);
        check(after);
    }

    void scan()
    {
        m_log += "Scan\n";
        ++operations;
        QList<QUrl> folders;
        for (const fs::path &root : m_roots)
            folders.append(QUrl::fromLocalFile(QString::fromStdString((root / "music").string())));
        m_session->startScan(folders);
        while (m_session->isScanning()) {
            pressKeys();
            QCoreApplication::processEvents();
        }
        m_scannedSongs = m_session->songs();
        m_scannedGroups = m_session->duplicateGroups();
        m_furtherGroups = findFurther(m_scannedSongs, {}, [](double) {}).value();
        m_decisions.clear();
        m_scanned.clear();
        const Files files = m_disks->files();
        for (const Song &song : m_scannedSongs)
            m_scanned[song.id] = resolved(files, pathOf(song));
        check(files);
    }

    /// Keys that are held and must do nothing now.
    void pressKeys()
    {
        m_session->cleanupAll();
        m_session->moveDuplicatesToFolder();
        m_session->retryCleanUp();
        m_session->undo();
        m_session->findMore();
        m_session->returnToFirstResult();
        if (m_session->songCount() > 0) {
            m_session->deleteSong(m_session->songs().first());
            m_session->keepSong(m_session->songs().last());
        }
        if (m_session->isCleaningUp()) {
            m_session->clearAll();
            m_session->startScan({QUrl::fromLocalFile(u"/"_s)});
            EXPECT_FALSE(m_session->isScanning());
        }
    }

    /// Does something, perhaps with others at work or until it is stopped.
    /// @return whether nobody has disturbed it
    [[nodiscard]] bool perform(const std::string &name, const std::function<void()> &operation)
    {
        ++operations;
        // So that the next toast is another one, whatever it says. Its button may be wanted for an undo.
        if (!name.starts_with("Undo") || m_session->toastAction().isEmpty())
            m_session->showToast({}, DuplicateViewModel::ToastType::Info);
        m_toasts.clear();
        std::jthread others;
        const bool isDisturbed = m_areOthersBusy && m_random.isOneIn(2);
        if (isDisturbed) {
            others = std::jthread([this](const std::stop_token &stop) {
                while (!stop.stop_requested())
                    m_disks->meddle();
            });
        }
        m_hasBeenDisturbed = m_hasBeenDisturbed || isDisturbed;
        operation();
        for (std::size_t turns = m_random.isOneIn(4) ? m_random.below(8) : 10'000; m_session->isCleaningUp();
             --turns) {
            if (turns == 0)
                m_session->stopCleanUp();
            if (turns < 8)
                std::this_thread::sleep_for(std::chrono::microseconds(m_random.below(1'000)));
            pressKeys();
            QCoreApplication::processEvents();
        }
        others = {};
        QCoreApplication::processEvents();
        m_log += name + (isDisturbed ? ", disturbed: " : ": ") + m_toasts + '\n';
        return !isDisturbed;
    }

    /// Exactly as many songs as it says leave, each as it was scanned, and nothing else changes.
    void remove(const std::string &name, const QList<Song> &songs, const std::function<void()> &operation)
    {
        const Files before = m_disks->files();
        if (name != "Try Again")
            m_cleanedGroups = m_session->duplicateGroups();
        const bool isQuiet = perform(name, operation);
        const Files after = m_disks->files();
        check(after);
        if (!isQuiet)
            return;
        const Files removed = without(before, after);
        const Files added = without(after, before);
        const bool isSingle = m_toasts.starts_with("Moved to Trash: ");
        EXPECT_EQ(removed.size(), isSingle ? 1 : said("Moved ([0-9]+) files"));
        EXPECT_EQ(contentsOf(added), contentsOf(removed));
        m_moved.insert(removed.begin(), removed.end());
        QSet<QUuid> moved;
        for (const auto &[path, content] : removed) {
            const auto song = std::ranges::find(songs, path, pathOf);
            ASSERT_NE(song, songs.end()) << path;
            EXPECT_EQ(resolved(before, path), m_scanned[song->id]) << path << " is not what was scanned";
            moved.insert(song->id);
        }
        for (const auto &[path, content] : added)
            EXPECT_TRUE(path.string().find("/target/Duplicates_") != std::string::npos ||
                        path.string().find("Trash") != std::string::npos)
                << path;
        if (const int failed = said("([0-9]+) failed")) {
            EXPECT_EQ(m_session->cleanUpFailureCount(),
                      failed + (name == "Try Again" ? said("([0-9]+) not moved") : 0));
        }
        for (const DuplicateGroup &group : m_cleanedGroups) {
            const QList<Song> members = membersOf(group);
            EXPECT_TRUE(
                name.starts_with("Delete") ||
                std::ranges::none_of(members, [&](const Song &song) { return moved.contains(song.id); }) ||
                std::ranges::any_of(
                    members,
                    [&](const Song &song) { return resolved(after, pathOf(song)) == m_scanned[song.id]; }))
                << "Nothing is left of the group of " << pathOf(group.original);
        }
    }

    void undo()
    {
        const Files before = m_disks->files();
        const bool isQuiet = perform(m_session->undoText().toStdString(), [this] {
            m_session->toastAction().isEmpty() ? m_session->undo() : m_session->performToastAction();
        });
        const Files after = m_disks->files();
        if (m_toasts.find("Undone: ") != std::string::npos)
            m_decisions.pop_back();
        check(after);
        if (!isQuiet)
            return;
        const Files added = without(after, before);
        EXPECT_EQ(contentsOf(added), contentsOf(without(before, after)));
        // Others can have put some back before.
        const auto said = static_cast<std::size_t>(this->said("([0-9]+) files? put back"));
        EXPECT_TRUE(added.size() == said || (m_areOthersThere && added.size() < said)) << added.size();
        EXPECT_TRUE(m_hasBeenDisturbed || std::ranges::includes(m_moved, added)) << "Not where it was";
    }

    [[nodiscard]] int said(const char *pattern) const
    {
        const QRegularExpression expression{QString::fromLatin1(pattern)};
        return expression.match(QString::fromStdString(m_toasts)).captured(1).toInt();
    }

    /// No content is lost, and where nobody else is at work, the lists show what is there.
    void check(const Files &files)
    {
        std::set<std::string> found;
        for (const auto &[path, content] : files) {
            found.insert(content);
            EXPECT_TRUE(m_hasBeenDisturbed || !path.filename().string().starts_with(".sonavo")) << path;
        }
        for (const std::string &content : m_disks->contents)
            EXPECT_TRUE(found.contains(content)) << "Lost: " << content;
        checkPreview();
        if (m_areOthersThere || !m_session)
            return;
        const auto isGone = [&files](const Song &song) { return !files.contains(pathOf(song)); };
        QList<Song> songs = m_scannedSongs;
        songs.removeIf(isGone);
        SearchDepth depth = SearchDepth::FourPasses;
        for (const Decision &decision : m_decisions)
            depth = decision.depth.value_or(depth);
        const bool isFurther = depth == SearchDepth::Further;
        QList<DuplicateGroup> groups;
        for (const DuplicateGroup &group : isFurther ? m_furtherGroups : m_scannedGroups) {
            QList<Song> members = membersOf(group);
            for (const Decision &decision : m_decisions) {
                const auto kept = std::ranges::find(members, decision.kept, &Song::id);
                if (kept != members.end())
                    std::rotate(members.begin(), kept, kept + 1);
            }
            members.removeIf([&](const Song &song) {
                return isGone(song) || std::ranges::count(m_decisions, song.id, &Decision::excluded) > 0;
            });
            if (members.size() > 1)
                groups.append({isFurther ? QUuid() : group.id, members.takeFirst(), members, group.color});
        }
        QList<DuplicateGroup> shown = m_session->duplicateGroups();
        shown.removeIf([](const DuplicateGroup &group) { return group.duplicates.isEmpty(); });
        for (DuplicateGroup &group : shown)
            group.id = isFurther ? QUuid() : group.id;
        EXPECT_EQ(linesOf(m_session->songs(), shown), linesOf(songs, groups));
    }

    /// The song that plays has a row, or stands beside the summary.
    void checkPreview() const
    {
        if (!m_session || !m_session->currentlyPlayingSong())
            return;
        QList<Song> withRow;
        for (const DuplicateGroup &group : m_session->duplicateGroups())
            withRow += group.duplicates.isEmpty() ? QList<Song>() : membersOf(group);
        EXPECT_TRUE(withRow.contains(*m_session->currentlyPlayingSong()) ||
                    (withRow.isEmpty() && m_session->hasCleanUpSummary()))
            << "Nothing shows that it plays: " << pathOf(*m_session->currentlyPlayingSong());
    }

    void endWhileFilesMove()
    {
        m_log += "End\n";
        m_random.isOneIn(2) ? m_session->cleanupAll() : m_session->undo();
        std::this_thread::sleep_for(std::chrono::microseconds(m_random.below(5'000)));
        m_session->endSession();
        m_session.reset();
        fileJobThread().waitForDone();
        check(m_disks->files());
    }

    void undoEverything(const Files &atFirst)
    {
        m_disks->unblock();
        for (int i = 0; i < 60 && !m_session->undoText().isEmpty() && !HasFailure(); ++i)
            undo();
        if (m_areOthersThere)
            return;
        EXPECT_TRUE(m_disks->files() == atFirst);
        EXPECT_EQ(linesOf(m_session->songs(), m_session->duplicateGroups()),
                  linesOf(m_scannedSongs, m_scannedGroups));
        for (const fs::path &root : m_roots) {
            for (const auto &entry : fs::recursive_directory_iterator(root)) {
                const fs::path extension = entry.path().extension();
                EXPECT_TRUE(extension != ".csv" && extension != ".trashinfo") << entry.path();
            }
        }
    }

    QTemporaryDir m_mountPoint;
    PrivateMounts m_mounts;
    std::optional<PrivateHome> m_home;
    std::vector<fs::path> m_roots;
    RandomSource m_random{0};
    std::optional<Disks> m_disks;
    bool m_areOthersThere = false;
    /// Also while files are being moved.
    bool m_areOthersBusy = false;
    bool m_hasBeenDisturbed = false;
    FakeDesktop m_desktop;
    std::optional<DuplicateViewModel> m_session;
    std::string m_toasts;
    std::string m_log;
    QList<Song> m_scannedSongs;
    QList<DuplicateGroup> m_scannedGroups;
    QList<DuplicateGroup> m_furtherGroups;
    /// Those that the last clean-up began with.
    QList<DuplicateGroup> m_cleanedGroups;
    /// Without those that were undone.
    std::vector<Decision> m_decisions;
    std::map<QUuid, std::string> m_scanned;
    /// What has ever left undisturbed, and from where.
    std::set<Files::value_type> m_moved;
};

/// SONAVO_RANDOM_OPERATIONS says how many, SONAVO_RANDOM_SEED where to begin; the moments at which others do
/// something or the user stops a job are never the same.
TEST_F(RandomCleanUps, LoseNoContentAndSayWhatHappened)
{
    const int wanted = std::max(qEnvironmentVariableIntValue("SONAVO_RANDOM_OPERATIONS"), 200);
    bool isGiven = false;
    std::uint64_t seed = qEnvironmentVariable("SONAVO_RANDOM_SEED").toULongLong(&isGiven);
    for (seed = isGiven ? seed : std::random_device()(); operations < wanted && !HasFailure(); ++seed)
        playEpisode(seed);
}

} // namespace
} // namespace sonavo
