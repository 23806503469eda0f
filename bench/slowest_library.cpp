#include "analysis/find_further.h"
#include "bench/direct_finder.h"
#include "bench/goal.h"
#include "generators/library_generator.h"
#include "generators/random_source.h"
#include "import/song_reading.h"

#include <QUuid>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace sonavo {
namespace {

using Clock = std::chrono::steady_clock;

/// What is measured.
enum class Way
{
    FourPasses,
    Further
};

/// How the artists or the titles of a library are made. Each member is an index into the values of its name.
struct TextShape
{
    int distinct = 0;
    int commonWords = 0;
    int length = 0;
    int letters = 0;
    int edits = 0;
};

constexpr std::array DISTINCT{1, 2, 10, 100, 1'000, 10'000, 1'000'000};
/// Words that all texts begin with.
constexpr std::array COMMON_WORDS{0, 1, 2, 4, 8};
/// Characters of what follows them.
constexpr std::array LENGTHS{0, 3, 4, 6, 8, 10, 12, 14, 15, 16, 20, 24, 30, 40, 60, 70};
/// Letters that it is made of.
constexpr std::array LETTERS{4, 10, 16, 26, 36};
/// How many of its characters differ from one text that is the same for all, in percent; 0 makes it a number.
constexpr std::array EDITS{0, 10, 15, 20, 30, 40, 60, 100};

/// A library, as a point in the space that is searched.
struct Shape
{
    TextShape artist;
    TextShape title;
    /// How far the playing times lie apart.
    int seconds = 0;
    /// What the file is called.
    int name = 0;
    /// How many files there are of each song.
    int copies = 0;
    std::uint64_t seed = 0;
};

constexpr std::array SECONDS{0.0, 0.9, 5.0, 10.0, 30.0, 100.0, 600.0, 3600.0};
constexpr std::array NAMES{"artist and title", "title", "title and number", "the same for all"};
constexpr std::array COPIES{1, 2, 5, 50};

/// Where the search begins: what has been slow before. The indexes are those of the values above.
constexpr std::array BEGINNINGS{
    // "Whoosh 000001 - Sound Library"
    Shape{
        .artist = {6, 1, 3, 1, 0}, .title = {0, 2, 0, 1, 0}, .seconds = 7, .name = 0, .copies = 0, .seed = 1},
    // "20240131142233 - Voice Memo"
    Shape{
        .artist = {6, 0, 7, 1, 6}, .title = {0, 2, 0, 1, 0}, .seconds = 6, .name = 0, .copies = 0, .seed = 2},
    // "Track 000001"
    Shape{
        .artist = {0, 0, 0, 1, 0}, .title = {6, 1, 3, 1, 0}, .seconds = 3, .name = 1, .copies = 0, .seed = 3},
    // The same with a title that is longer
    Shape{
        .artist = {0, 1, 0, 1, 0}, .title = {6, 4, 3, 1, 0}, .seconds = 1, .name = 0, .copies = 0, .seed = 4},
    // Artists that are nearly alike
    Shape{
        .artist = {6, 0, 9, 3, 5}, .title = {0, 2, 0, 1, 0}, .seconds = 1, .name = 0, .copies = 0, .seed = 5},
    // The same with fewer letters
    Shape{.artist = {6, 0, 10, 0, 4},
          .title = {0, 2, 0, 1, 0},
          .seconds = 3,
          .name = 0,
          .copies = 0,
          .seed = 6},
    // Titles that are nearly alike
    Shape{.artist = {0, 0, 0, 1, 0},
          .title = {6, 1, 13, 3, 1},
          .seconds = 3,
          .name = 0,
          .copies = 0,
          .seed = 7},
    // Longer ones
    Shape{.artist = {6, 0, 13, 3, 4},
          .title = {0, 2, 0, 1, 0},
          .seconds = 1,
          .name = 0,
          .copies = 0,
          .seed = 5},
    // The same with digits
    Shape{
        .artist = {6, 0, 7, 1, 6}, .title = {0, 2, 0, 1, 0}, .seconds = 1, .name = 0, .copies = 0, .seed = 2},
    // Both are long and nearly alike
    Shape{.artist = {6, 3, 11, 1, 4},
          .title = {6, 4, 7, 3, 5},
          .seconds = 7,
          .name = 0,
          .copies = 0,
          .seed = 8},
    // Both are as long as they get
    Shape{.artist = {6, 3, 14, 1, 4},
          .title = {6, 4, 15, 3, 7},
          .seconds = 7,
          .name = 0,
          .copies = 0,
          .seed = 9},
};

struct Choice
{
    int *value;
    int count;
};

std::vector<Choice> choicesOf(Shape &shape)
{
    std::vector<Choice> choices;
    const auto add = [&](int &value, const auto &values) {
        choices.push_back({&value, static_cast<int>(values.size())});
    };
    for (TextShape *text : {&shape.artist, &shape.title}) {
        add(text->distinct, DISTINCT);
        add(text->commonWords, COMMON_WORDS);
        add(text->length, LENGTHS);
        add(text->letters, LETTERS);
        add(text->edits, EDITS);
    }
    add(shape.seconds, SECONDS);
    add(shape.name, NAMES);
    add(shape.copies, COPIES);
    return choices;
}

template <typename Values>
auto valueOf(const Values &values, int index)
{
    return values.at(static_cast<std::size_t>(index));
}

std::string textOf(const TextShape &shape)
{
    const int edits = valueOf(EDITS, shape.edits);
    return std::to_string(valueOf(DISTINCT, shape.distinct)) + " texts, " +
           std::to_string(valueOf(COMMON_WORDS, shape.commonWords)) + " words the same, then " +
           std::to_string(valueOf(LENGTHS, shape.length)) + " characters of " +
           std::to_string(valueOf(LETTERS, shape.letters)) +
           (edits == 0 ? ", a number" : ", " + std::to_string(edits) + " % edited");
}

std::string textOf(const Shape &shape)
{
    return "artists: " + textOf(shape.artist) + "; titles: " + textOf(shape.title) + "; within " +
           std::to_string(valueOf(SECONDS, shape.seconds)) + " s; files named by " +
           valueOf(NAMES, shape.name) + "; " + std::to_string(valueOf(COPIES, shape.copies)) +
           " of each; seed " + std::to_string(shape.seed);
}

/// Makes the texts of one TextShape.
class TextMaker
{
public:
    TextMaker(const TextShape &shape, RandomSource &random)
        : m_shape(shape)
        , m_random(random)
    {
        constexpr std::array WORDS{"the", "night", "sound", "library", "best", "music", "voice", "memo"};
        for (int i = 0; i < valueOf(COMMON_WORDS, shape.commonWords); ++i)
            m_common += QString::fromLatin1(valueOf(WORDS, i)) + u' ';
        for (int i = 0; i < valueOf(LENGTHS, shape.length); ++i)
            m_model += letter();
    }

    QString make()
    {
        const auto distinct = static_cast<std::size_t>(valueOf(DISTINCT, m_shape.distinct));
        const std::size_t number = m_made++ % distinct;
        if (number < m_texts.size())
            return m_texts[number];
        QString text = (m_common + ending(number)).trimmed();
        // More than a library has songs are not needed again.
        if (distinct < std::size_t{DISTINCT.back()})
            m_texts.push_back(text);
        return text;
    }

private:
    QChar letter()
    {
        constexpr QStringView ALL = u"etaoinshrdlcumwfgypbvkjxqz0123456789";
        const int letters = valueOf(LETTERS, m_shape.letters);
        // Ten are digits, as in times and numbers.
        const QStringView used = letters == 10 ? ALL.last(10) : ALL.first(letters);
        return used[static_cast<qsizetype>(m_random.below(static_cast<std::size_t>(used.size())))];
    }

    QString ending(std::size_t number)
    {
        const int edits = valueOf(EDITS, m_shape.edits);
        if (edits == 0)
            return m_model.isEmpty() ? QString()
                                     : QString::number(number).rightJustified(m_model.size(), u'0');
        QString text = m_model;
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (m_random.below(100) < static_cast<std::size_t>(edits))
                text[i] = letter();
        }
        return text;
    }

    const TextShape m_shape;
    RandomSource &m_random;
    QString m_common;
    QString m_model;
    std::vector<QString> m_texts;
    std::size_t m_made = 0;
};

QString fileNameOf(int style, const Song &song, std::size_t number)
{
    switch (style) {
    case 0:
        return song.artist + QStringLiteral(" - ") + song.title + QStringLiteral(".mp3");
    case 1:
        return song.title + QStringLiteral(".mp3");
    case 2:
        return song.title + u' ' + QString::number(number) + QStringLiteral(".mp3");
    default:
        return QStringLiteral("audio.mp3");
    }
}

/// The same song as a scan makes it, if it can be read from a file name: texts share the memory of the path.
Song asScanned(SongBuilder &builder, const Song &song)
{
    Song scanned = builder.build(song.path, {.duration = song.duration, .size = song.size});
    scanned.id = song.id;
    return scanned.artist == song.artist && scanned.title == song.title ? scanned : song;
}

QList<Song> libraryOf(const Shape &shape, std::size_t count)
{
    RandomSource random(shape.seed);
    SongBuilder builder;
    TextMaker artists(shape.artist, random);
    TextMaker titles(shape.title, random);
    const auto copies = static_cast<std::size_t>(valueOf(COPIES, shape.copies));
    QList<Song> songs;
    songs.reserve(static_cast<qsizetype>(count));
    for (std::size_t i = 0; i < count; ++i) {
        Song song;
        if (i % copies == 0 || songs.isEmpty()) {
            song.artist = artists.make();
            song.title = titles.make();
            song.duration = 180.0 + valueOf(SECONDS, shape.seconds) * random.unit();
            song.name = fileNameOf(shape.name, song, i);
        } else {
            song = songs.last();
        }
        song.id = QUuid(static_cast<uint>(i), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        song.path = QStringLiteral("/music/%1/").arg(i) + song.name;
        song.size = static_cast<qint64>(random.below(10'000'000));
        songs.append(asScanned(builder, song));
    }
    return songs;
}

/// What an analysis took.
struct Cost
{
    /// Of all cores together, which other programs disturb less than the time that passes.
    double cpuSeconds = 0.0;
    double seconds = 0.0;
    /// Of the whole process, with the library.
    double megabytes = 0.0;
    bool isComplete = false;
};

double cpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

Cost costOf(Way way, const QList<Song> &songs)
{
    const auto start = Clock::now();
    const double cpu = cpuSeconds();
    if (way == Way::FourPasses) {
        DuplicateFinder finder(songs);
        (void)groupsOf(finder);
    } else {
        (void)findFurther(songs, {}, [](double) {});
    }
    const std::chrono::duration<double> time = Clock::now() - start;
    return {cpuSeconds() - cpu, time.count(), 0.0, true};
}

/// Makes and analyses a library in a process of its own, for its memory and so that it can be ended.
template <typename MakeLibrary>
Cost costInChild(Way way, MakeLibrary makeLibrary, rlim_t mostSeconds)
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{mostSeconds, mostSeconds};
        setrlimit(RLIMIT_CPU, &limit);
        const Cost cost = costOf(way, makeLibrary());
        const bool isWritten = write(pipe[1], &cost, sizeof cost) == sizeof cost;
        _exit(isWritten ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    close(pipe[1]);
    Cost cost;
    if (read(pipe[0], &cost, sizeof cost) != sizeof cost) {
        cost = {};
        cost.seconds = cost.cpuSeconds = static_cast<double>(mostSeconds);
    }
    close(pipe[0]);
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    cost.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
    return cost;
}

struct Found
{
    Shape shape;
    Cost cost;
};

class Search
{
public:
    Search(Way way, std::size_t songs, std::uint64_t seed, Clock::time_point end)
        : m_way(way)
        , m_songs(songs)
        , m_random(seed)
        , m_end(end)
    {}

    /// Climbs from libraries to slower and slower neighbours until the time is over.
    /// @return all that were tried, the slowest first
    std::vector<Found> run()
    {
        for (const Shape &beginning : BEGINNINGS)
            climb(beginning);
        while (Clock::now() < m_end)
            climb(randomShape());
        std::stable_sort(m_found.begin(), m_found.end(), [](const Found &a, const Found &b) {
            return a.cost.cpuSeconds > b.cost.cpuSeconds;
        });
        return m_found;
    }

private:
    static constexpr rlim_t MOST_SECONDS = 40;
    static constexpr int MOST_FAILURES = 16;

    void climb(const Shape &beginning)
    {
        Found best = measured(beginning);
        for (int failures = 0; failures < MOST_FAILURES && Clock::now() < m_end; ++failures) {
            const Found next = measured(neighbourOf(best.shape));
            if (next.cost.cpuSeconds <= best.cost.cpuSeconds)
                continue;
            best = next;
            failures = 0;
        }
        std::printf("%7.2f s CPU%s, %4.0f MB: %s\n", best.cost.cpuSeconds,
                    best.cost.isComplete ? "" : " and more", best.cost.megabytes, textOf(best.shape).c_str());
        std::fflush(stdout);
    }

    Found measured(const Shape &shape)
    {
        m_found.push_back({shape, costInChild(
                                      m_way, [&] { return libraryOf(shape, m_songs); }, MOST_SECONDS)});
        return m_found.back();
    }

    Shape randomShape()
    {
        Shape shape;
        shape.seed = m_random.bits();
        for (const Choice &choice : choicesOf(shape))
            *choice.value = static_cast<int>(m_random.below(static_cast<std::size_t>(choice.count)));
        return shape;
    }

    /// Another value in one place or two: an edge can lie across.
    Shape neighbourOf(Shape shape)
    {
        const std::vector<Choice> choices = choicesOf(shape);
        const std::size_t changes = m_random.between(1, 2);
        for (std::size_t i = 0; i < changes; ++i) {
            const Choice &choice = choices[m_random.below(choices.size())];
            const bool isStep = !m_random.isOneIn(3);
            const int step = m_random.isOneIn(2) ? 1 : -1;
            *choice.value = isStep ? std::clamp(*choice.value + step, 0, choice.count - 1)
                                   : static_cast<int>(m_random.below(static_cast<std::size_t>(choice.count)));
        }
        return shape;
    }

    const Way m_way;
    const std::size_t m_songs;
    RandomSource m_random;
    const Clock::time_point m_end;
    std::vector<Found> m_found;
};

void search(Way way, double minutes, std::uint64_t seed)
{
    constexpr std::size_t MIDDLE = 100'000;
    constexpr std::size_t LARGE = 500'000;
    constexpr rlim_t MOST_SECONDS = 30;
    const std::string name = way == Way::Further ? "looking further" : "the four passes";
    const Cost realistic = costInChild(
        way, [] { return generateLibrary({.songs = MIDDLE}); }, MOST_SECONDS);
    std::printf("\n%s, seed %llu; a realistic library of %zu songs takes %.3f s of CPU\n", name.c_str(),
                static_cast<unsigned long long>(seed), MIDDLE, realistic.cpuSeconds);
    std::fflush(stdout);
    const auto time =
        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(minutes * 60));
    const std::vector<Found> found = Search(way, MIDDLE, seed, Clock::now() + time).run();

    constexpr std::size_t SHOWN = 5;
    std::printf("\n%zu libraries; the slowest:\n", found.size());
    double seconds = 0.0;
    double megabytes = 0.0;
    bool areComplete = true;
    for (std::size_t i = 0; i < std::min(SHOWN, found.size()); ++i) {
        const Cost large = costInChild(
            way, [&] { return libraryOf(found[i].shape, LARGE); }, MOST_SECONDS);
        std::printf("%7.2f s CPU, %7.2f s and %4.0f MB at 500,000%s: %s\n", found[i].cost.cpuSeconds,
                    large.seconds, large.megabytes, large.isComplete ? "" : " (ended)",
                    textOf(found[i].shape).c_str());
        seconds = std::max(seconds, large.seconds);
        megabytes = std::max(megabytes, large.megabytes);
        areComplete = areComplete && large.isComplete;
    }
    const auto print = areComplete ? printGoal : printUnfinished;
    if (!found.empty())
        printGoal((name + ", slowest / realistic, 100,000 songs, CPU").c_str(),
                  found.front().cost.cpuSeconds / realistic.cpuSeconds, "times", 8.0);
    print((name + ", the slowest of them, 500,000 songs").c_str(), seconds, "s", 5.0);
    print((name + ", the largest of them, 500,000 songs").c_str(), megabytes, "MB", 700.0);
}

} // namespace
} // namespace sonavo

/// Searches for the libraries that the four passes and looking further take longest for, each in half of the
/// time: `bench_slowest [MINUTES [SEED]]`.
int main(int argc, char **argv)
{
    const double minutes = argc > 1 ? std::atof(argv[1]) : 30.0;
    const std::uint64_t seed =
        argc > 2 ? std::strtoull(argv[2], nullptr, 10) : static_cast<std::uint64_t>(std::time(nullptr));
    for (const sonavo::Way way : {sonavo::Way::FourPasses, sonavo::Way::Further})
        sonavo::search(way, minutes / 2, seed);
    return EXIT_SUCCESS;
}
