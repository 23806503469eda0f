#include "testing/arbitrary_songs.h"

#include <QStringList>
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
    u"!!!"_s,     u"U2"_s,          u"Ποίμης"_s,     u"نجوى"_s};
const std::vector<QString> TITLES = {u""_s,
                                     u"Love Song"_s,
                                     u"Love Song"_s,
                                     u"Love Song in the Dark"_s,
                                     u"Love"_s,
                                     u"Sun King"_s,
                                     u"Go"_s,
                                     u"Up, up, up"_s,
                                     u"Café del Mar"_s,
                                     u"Песня love"_s,
                                     u"Песня"_s,
                                     u"Ωmega Sun"_s,
                                     u"夜に駆ける"_s,
                                     u"夜"_s,
                                     u"사랑"_s,
                                     u"012 Love"_s,
                                     u"รัก"_s,
                                     u"がか"_s,
                                     u"𐌰𐌱𐌲 𐌳𐌴𐌵𐌶𐌷𐌸"_s};
/// On both sides of a whole second, five seconds and a little more apart, and fractions of either sign.
const std::vector<double> DURATIONS = {180.0, 179.9, 180.6, 184.9, 185.0, 185.0000001, 189.95, 0.4, -0.6};

QString withTypos(QString text)
{
    for (int i = *gen::inRange(1, 5); i > 0 && !text.isEmpty(); --i)
        text.replace(*gen::inRange<qsizetype>(0, text.size()), *gen::inRange(0, 2),
                     *gen::element(u""_s, u"z"_s));
    return text;
}

QString variantOf(const QString &text)
{
    const QString unusualLetters = QString(text).replace(u'K', u'\u212A').replace(u'i', u'\u0130');
    return *gen::element(text, text, text, withTypos(text), withTypos(text), text.toUpper(),
                         text + u" (Live)"_s, withTypos(text) + u" - Sun 7"_s, u"7 "_s + text,
                         u"The "_s + text, text + u", The"_s, text + u" feat. Queen"_s,
                         text + u" ft. Beatles"_s, u"["_s + text + u"]! (1)"_s,
                         QString(text).replace(u' ', u'_'), QString(text).remove(u' '), unusualLetters);
}

Song copyOf(Song song)
{
    song.artist = variantOf(song.artist);
    song.title = variantOf(song.title);
    song.duration =
        *gen::element(song.duration, song.duration, song.duration + 5.0, *gen::elementOf(DURATIONS));
    song.size = *gen::inRange(1, 4);
    song.name = *gen::element(variantOf(song.artist + u" - "_s + song.title) + u".mp3"_s,
                              song.title + u".mp3"_s, u"01_"_s + song.title + u".flac"_s,
                              u"01 - "_s + song.title + u".FLAC"_s, u"Track 01.mp3"_s, u""_s);
    song.path = u"/music/%1"_s.arg(*gen::inRange(0, 100));
    return song;
}

} // namespace

Gen<QList<Song>> library(int mostSongs)
{
    return gen::exec([mostSongs] {
        const auto recording =
            gen::apply(songOf, gen::elementOf(ARTISTS), gen::elementOf(TITLES), gen::elementOf(DURATIONS));
        const auto recordings = *gen::nonEmpty(gen::resize(4, gen::container<std::vector<Song>>(recording)));
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

Song songOf(const QString &artist, const QString &title, double duration)
{
    const QString name = QUuid::createUuid().toString();
    return {QUuid::createUuid(), u"/music/"_s + name, name, duration, 4'000'000, u"MP3"_s, artist, title, {}};
}

void showValue(const QList<Song> &songs, std::ostream &out)
{
    for (const Song &song : songs) {
        const QStringList texts{song.artist, song.title, song.name, song.path};
        out << "\n  " << texts.join(u" | "_s).toStdString() << " | " << song.duration << " s, " << song.size;
    }
}

} // namespace sonavo
