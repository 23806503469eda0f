#include "testing/arbitrary_songs.h"

#include <QUuid>

#include <vector>

namespace sonavo {
namespace {

using rc::Gen;
namespace gen = rc::gen;
using namespace Qt::StringLiterals;

/// "Sonomirage" has ten letters and "Sonomirage Love Song" twenty characters, so that a few typing errors
/// land exactly on the limits of similarity.
const std::vector<QString> ARTISTS = {
    u""_s,        u"Sonomirage"_s,  u"Sonomirago"_s, u"Queen"_s, u"Queen & Tredigra"_s,
    u"Beatles"_s, u"The Beatles"_s, u"Kino"_s,       u"Кино"_s,  u"椎名林檎"_s,
    u"!!!"_s,     u"U2"_s};
const std::vector<QString> TITLES = {
    u""_s,         u"Love Song"_s, u"Love Song"_s,  u"Love Song in the Dark"_s, u"Love"_s,
    u"Sun King"_s, u"Go"_s,        u"Up, up, up"_s, u"Café del Mar"_s,          u"Песня love"_s,
    u"Песня"_s,    u"Ωmega Sun"_s, u"夜に駆ける"_s};
/// On both sides of a whole second, five seconds and a little more apart, and fractions of either sign.
const std::vector<double> DURATIONS = {180.0, 179.9, 180.6, 184.9, 185.0, 185.0000001, 189.95, 0.4, -0.6};
const std::vector<qint64> SIZES = {4'000'000, 4'000'000, 5'200'000, 1};

/// A number below `limit`, each as likely; 0 is what a failure is reduced to.
Gen<int> below(int limit)
{
    return gen::resize(rc::kNominalSize, gen::inRange(0, limit));
}

QString withTypingErrors(QString text)
{
    for (int i = *below(4); i >= 0 && !text.isEmpty(); --i) {
        const int at = *below(static_cast<int>(text.size()));
        text.replace(at, *below(2), *gen::element(u""_s, u"z"_s));
    }
    return text;
}

QString variantOf(const QString &text)
{
    if (*below(2) == 0)
        return text;
    const QString unusualLetters = QString(text).replace(u'K', u'\u212A').replace(u'i', u'\u0130');
    return *gen::element(withTypingErrors(text), withTypingErrors(text), withTypingErrors(text),
                         text.toUpper(), text + u" (Live)"_s, u"["_s + text + u"]! (1)"_s,
                         QString(text).replace(u' ', u'_'), unusualLetters);
}

QString fileNameOf(const Song &song)
{
    if (*below(3) == 0)
        return variantOf(song.artist + u" - "_s + song.title) + u".mp3"_s;
    return *gen::element(song.title + u".mp3"_s, u"01_"_s + song.title + u".flac"_s,
                         u"01 - "_s + song.title + u".FLAC"_s, u"Track 01.mp3"_s, u""_s);
}

Song copyOf(Song song)
{
    if (*below(3) != 0) {
        song.artist = variantOf(song.artist);
        song.title = variantOf(song.title);
    }
    song.duration =
        *gen::element(song.duration, song.duration, song.duration + 5.0, *gen::elementOf(DURATIONS));
    song.size = *gen::elementOf(SIZES);
    song.name = fileNameOf(song);
    song.path = *below(8) == 7 ? u"/music/again.mp3"_s : u"/music/%1/%2"_s.arg(*below(1000)).arg(song.name);
    return song;
}

} // namespace

Gen<QString> anyText()
{
    using namespace std::string_literals;
    const auto special = gen::elementOf(
        U"()[]{}azAZ09 \t\r\n\v_-'!`@/:\0\u0085\u00A0\u2003\u212A\u00DF\u0130\u0131\u212B\u0301\u03A3\uFF21\U00010400"s);
    const auto any = gen::map(below(0x110000 - 0x800), [](int code) {
        return static_cast<char32_t>(code < 0xD800 ? code : code + 0x800); // not the surrogates
    });
    const auto character = gen::weightedOneOf<char32_t>({{4, special}, {1, any}});
    return gen::map(gen::container<std::u32string>(character), [](const std::u32string &text) {
        return QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size()));
    });
}

Gen<QList<Song>> library(int mostSongs)
{
    return gen::exec([mostSongs] {
        std::vector<Song> recordings;
        for (int i = *below(4); i >= 0; --i) {
            recordings.push_back(
                songOf(*gen::elementOf(ARTISTS), *gen::elementOf(TITLES), *gen::elementOf(DURATIONS)));
        }
        const auto copy = gen::exec([recordings] { return copyOf(*gen::elementOf(recordings)); });
        QList<Song> songs;
        for (Song song : *gen::resize(mostSongs, gen::container<std::vector<Song>>(copy))) {
            // The same in every run, so that a failure can be repeated.
            song.id = QUuid::createUuidV5(QUuid(), QByteArray::number(songs.size()));
            songs << song;
        }
        return songs;
    });
}

Song songOf(const QString &artist, const QString &title, double duration, const std::optional<QString> &name,
            qint64 size)
{
    const QUuid id = QUuid::createUuid();
    const QString path = u"/music/"_s + id.toString();
    return {id, path, name.value_or(id.toString()), duration, size, u"MP3"_s, artist, title, u"music"_s};
}

std::string placesOf(const QList<Song> &chosen, const QList<Song> &songs)
{
    std::string places;
    for (const Song &song : chosen)
        places += (places.empty() ? "" : " ") + std::to_string(songs.indexOf(song));
    return places;
}

void showValue(const QList<Song> &songs, std::ostream &out)
{
    for (const Song &song : songs) {
        const QString tags =
            u"artist \"%1\", title \"%2\", name \"%3\""_s.arg(song.artist, song.title, song.name);
        out << "\n  " << tags.toStdString() << ", " << QString::number(song.duration, 'g', 17).toStdString()
            << " s, " << song.size << " bytes, path " << song.path.toStdString();
    }
}

} // namespace sonavo
