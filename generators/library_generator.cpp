#include "generators/library_generator.h"

#include "generators/random_source.h"
#include "generators/vocabulary.h"
#include "import/song_reading.h"

#include <QSet>
#include <QStringList>
#include <QUuid>

#include <algorithm>
#include <array>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

/// A piece of music, of which there are one or more files.
struct Recording
{
    QString artist;
    QString album;
    QString title;
    std::size_t track = 1;
    /// Seconds.
    double duration = 0.0;
};

/// The order of a scan: depth-first, names in byte order.
bool comesBefore(const Song &a, const Song &b)
{
    return std::lexicographical_compare(
        a.path.cbegin(), a.path.cend(), b.path.cbegin(), b.path.cend(), [](QChar left, QChar right) {
            const auto rank = [](QChar c) { return c == u'/' ? char16_t{0} : c.unicode(); };
            return rank(left) < rank(right);
        });
}

class Generator
{
public:
    explicit Generator(const LibraryPlan &plan)
        : m_plan(plan)
        , m_random(plan.seed)
    {}

    QList<Song> library()
    {
        m_songs.reserve(static_cast<qsizetype>(m_plan.songs));
        while (!isComplete())
            addArtist();
        std::sort(m_songs.begin(), m_songs.end(), comesBefore);
        return std::move(m_songs);
    }

private:
    bool isComplete() const { return static_cast<std::size_t>(m_songs.size()) >= m_plan.songs; }

    void addArtist()
    {
        const QString artist = m_plan.kind == LibraryKind::OneArtist ? u"Various Artists"_s : artistName();
        std::size_t albums = 1;
        switch (m_random.weighted({45, 20, 12, 15, 8})) {
        case 0:
            break;
        case 1:
            albums = 2;
            break;
        case 2:
            albums = 3;
            break;
        case 3:
            albums = m_random.between(4, 6);
            break;
        default:
            albums = m_random.between(7, 15);
            break;
        }
        for (; albums > 0 && !isComplete(); --albums)
            addAlbum(artist);
    }

    void addAlbum(const QString &artist)
    {
        const QString album = words(1 + m_random.weighted({40, 35, 25}));
        const QString folder = folderOf(u'/' + artist + u'/' + album);
        const NameStyle style = m_plan.style == NameStyle::Mixed ? albumStyle() : m_plan.style;
        const std::size_t tracks = m_random.isOneIn(4) ? m_random.between(1, 3) : m_random.between(8, 16);
        for (std::size_t track = 1; track <= tracks && !isComplete(); ++track) {
            const Recording recording{artist, album, title(), track, duration()};
            addSong(recording, style, folder, recording.duration);
            if (m_random.isOneIn(7))
                addCopies(recording);
        }
    }

    void addCopies(const Recording &recording)
    {
        const QString folder = folderOf(copyFolder(recording));
        for (std::size_t copies = m_random.between(1, 3); copies > 0 && !isComplete(); --copies) {
            const bool isInSameFolder = m_random.isOneIn(3);
            const NameStyle style = m_plan.style == NameStyle::Mixed ? copyStyle() : m_plan.style;
            // Most copies are equally long; some have other silence at their ends.
            const double difference =
                m_random.isOneIn(2) ? m_random.unit() * 0.4 - 0.2 : m_random.unit() * 18.0 - 9.0;
            const double length = m_plan.kind == LibraryKind::TenSeconds
                                      ? duration()
                                      : std::max(1.0, recording.duration + difference);
            addSong(recording, style, isInSameFolder ? folder : folderOf(copyFolder(recording)), length);
        }
    }

    void addSong(const Recording &recording, NameStyle style, const QString &folder, double seconds)
    {
        static constexpr std::array<QStringView, 5> TYPES{u"mp3", u"m4a", u"flac", u"wav", u"aac"};
        const std::size_t type = m_random.weighted({70, 15, 10, 3, 2});
        QString extension = TYPES[type].toString();
        if (m_random.isOneIn(50))
            extension = extension.toUpper();

        const QString base = nameOf(recording, style);
        QString path = folder + u'/' + base + u'.' + extension;
        for (int i = 1; m_paths.contains(path); ++i)
            path = u"%1/%2 (%3).%4"_s.arg(folder, base).arg(i).arg(extension);
        m_paths.insert(path);
        // Whole milliseconds.
        const double rounded = static_cast<double>(static_cast<qint64>(seconds * 1000.0)) / 1000.0;
        m_songs.append(songOf(path, rounded, sizeOf(type, rounded)));
    }

    /// Without extension.
    QString nameOf(const Recording &recording, NameStyle style) const
    {
        if (m_plan.kind == LibraryKind::NumberedTracks)
            return decorated(recording.title, style);
        const QString number = u"%1"_s.arg(recording.track, 2, 10, QChar(u'0'));
        if (m_plan.kind != LibraryKind::OneArtist) {
            if (style == NameStyle::NumberHyphenTitle)
                return number + u" - "_s + recording.title;
            if (style == NameStyle::NumberTitle)
                return number + u' ' + recording.title;
            if (style == NameStyle::ArtistAlbumNumberTitle)
                return recording.artist + u" - "_s + recording.album + u" - "_s + number + u" - "_s +
                       recording.title;
        }
        return decorated(recording.artist + u" - "_s + recording.title, style);
    }

    static QString decorated(QString name, NameStyle style)
    {
        switch (style) {
        case NameStyle::Underscores:
            return name.replace(u' ', u'_');
        case NameStyle::UpperCase:
            return name.toUpper();
        case NameStyle::Numbered:
            return name + u" (1)"_s;
        case NameStyle::Copy:
            return name + u" copy"_s;
        case NameStyle::Remastered:
            return name + u" (Remastered)"_s;
        default:
            return name;
        }
    }

    NameStyle albumStyle()
    {
        static constexpr std::array STYLES{NameStyle::ArtistTitle, NameStyle::NumberHyphenTitle,
                                           NameStyle::NumberTitle, NameStyle::ArtistAlbumNumberTitle,
                                           NameStyle::Underscores, NameStyle::UpperCase,
                                           NameStyle::Remastered};
        return STYLES[m_random.weighted({40, 18, 16, 12, 7, 3, 4})];
    }

    NameStyle copyStyle()
    {
        static constexpr std::array STYLES{NameStyle::ArtistTitle, NameStyle::Numbered, NameStyle::Copy,
                                           NameStyle::Remastered};
        const std::size_t choice = m_random.weighted({40, 10, 5, 5, 40});
        return choice < STYLES.size() ? STYLES[choice] : albumStyle();
    }

    QString copyFolder(const Recording &recording)
    {
        switch (m_random.below(5)) {
        case 0:
            return u"/Backup 2019/"_s + recording.artist;
        case 1:
            return u"/Downloads/20%1-%2"_s.arg(m_random.between(10, 24))
                .arg(m_random.between(1, 12), 2, 10, QChar(u'0'));
        case 2:
            return u"/Compilations/"_s + words(2);
        case 3:
            return u"/Phone/"_s + recording.artist + u'/' + recording.album;
        default:
            return u"/"_s + recording.artist + u"/Singles"_s;
        }
    }

    /// A folder of the library, its name padded when the plan asks for long paths.
    QString folderOf(const QString &relative) const
    {
        constexpr qsizetype TYPICAL_FILE_NAME = 40;
        constexpr QStringView PADDING =
            u", from the collection of records and tapes in the attic of the old house";
        const qsizetype missing =
            m_plan.pathLength - m_plan.root.size() - relative.size() - TYPICAL_FILE_NAME;
        return m_plan.root + relative +
               PADDING.first(std::clamp<qsizetype>(missing, 0, PADDING.size())).toString();
    }

    QString title()
    {
        if (m_plan.kind == LibraryKind::NumberedTracks)
            return u"Track %1"_s.arg(++m_titleNumber, 6, 10, QChar(u'0'));
        QString title = words(1 + m_random.weighted({15, 27, 24, 16, 10, 5, 3}));
        if (m_random.isOneIn(30))
            title += u" (Live)"_s;
        else if (m_random.isOneIn(40))
            title += u" (feat. "_s + artistName() + u')';
        else if (m_random.isOneIn(60))
            title += u" ("_s + rareWord() + u" Remix)"_s;
        else if (m_random.isOneIn(100))
            title = m_random.isOneIn(2) ? u"Intro"_s : u"Outro"_s;
        return title;
    }

    QString artistName()
    {
        switch (m_random.weighted({45, 20, 15, 12, 4, 2, 2})) {
        case 0:
            return QStringList{firstName(), rareWord()}.join(u' ');
        case 1:
            return QStringList{u"The"_s, words(1), rareWord() + u's'}.join(u' ');
        case 2:
            return rareWord();
        case 3:
            return words(2);
        case 4:
            return QStringList{rareWord(), rareWord()}.join(u" & "_s);
        case 5:
            return QStringList{rareWord(), firstName()}.join(u'-');
        default:
            return u"DJ "_s + rareWord();
        }
    }

    // Random draws need a fixed order: the operands of + are unsequenced, the items of a list are not.
    const QString &firstName() { return m_vocabulary.firstName(m_random); }
    const QString &rareWord() { return m_vocabulary.rareWord(m_random); }

    QString words(std::size_t count)
    {
        QStringList list;
        for (; count > 0; --count)
            list << m_vocabulary.titleWord(m_random);
        return list.join(u' ');
    }

    double duration()
    {
        if (m_plan.kind == LibraryKind::TenSeconds)
            return 240.0 + 9.99 * m_random.unit();
        switch (m_random.weighted({85, 5, 10})) {
        case 0:
            return std::max(60.0, 228.0 + 50.0 * m_random.normal());
        case 1:
            return 10.0 + 110.0 * m_random.unit();
        default:
            return 270.0 + 300.0 * m_random.unit() * m_random.unit();
        }
    }

    qint64 sizeOf(std::size_t type, double seconds)
    {
        // Kilobits a second of MP3, M4A, FLAC, WAV and AAC.
        static constexpr std::array<std::array<std::size_t, 4>, 5> RATES{{{128, 192, 256, 320},
                                                                          {128, 128, 192, 256},
                                                                          {650, 800, 900, 1000},
                                                                          {1411, 1411, 1411, 1411},
                                                                          {96, 96, 128, 128}}};
        const auto rate = static_cast<double>(RATES[type][m_random.below(4)]);
        return static_cast<qint64>(seconds * rate * 125.0) + static_cast<qint64>(m_random.below(60'000));
    }

    /// A song as a scan reads it, with an id that is the same every time.
    Song songOf(const QString &path, double seconds, qint64 size)
    {
        Song song = m_songBuilder.build(path, {seconds, size});
        const std::uint64_t high = m_random.bits();
        const std::uint64_t low = m_random.bits();
        const auto byteOf = [low](int index) { return static_cast<uchar>(low >> (8 * index)); };
        song.id =
            QUuid(static_cast<uint>(high), static_cast<ushort>(high >> 32), static_cast<ushort>(high >> 48),
                  byteOf(0), byteOf(1), byteOf(2), byteOf(3), byteOf(4), byteOf(5), byteOf(6), byteOf(7));
        return song;
    }

    const LibraryPlan &m_plan;
    const Vocabulary m_vocabulary;
    RandomSource m_random;
    SongBuilder m_songBuilder;
    QList<Song> m_songs;
    QSet<QString> m_paths;
    int m_titleNumber = 0;
};

} // namespace

QList<Song> generateLibrary(const LibraryPlan &plan)
{
    return Generator(plan).library();
}

} // namespace sonavo
