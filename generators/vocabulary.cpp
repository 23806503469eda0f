#include "generators/vocabulary.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace sonavo {
namespace {

using namespace Qt::StringLiterals;

/// Words of song titles, roughly the commonest first.
QStringList commonWords()
{
    return QStringLiteral(
               "The You Love Me I To My In Of A Your It And On The Don't Is All For Be No Up We Night "
               "Time Go Like One Girl Heart Down Baby World Way What Good Let Blue Man Life Can Day "
               "Never Out Little With Song Back Home This Black Dance Come Away So Get Do Rock Be Not "
               "Now From Just Know Want Live Are Again Boy Dream Got Gone Lost Last I'm Take Fire Have "
               "Moon Big Feel Make New Still That Sun Light More Rain Eyes How When Tonight Over Here "
               "Only Wild Street Blues Can't Sweet Star Say Think Summer Long Road Need Red Forever "
               "Better Soul Old At River Woman Run High Give City House Too If Alone True Beautiful Die "
               "Crazy Mind Who Town Stay Tell There People Hold Cold White King Lonely Sky Angel Morning "
               "Free Right Dark Kiss Water Wind Another Will Where Turn Train Christmas Look Two Bad "
               "Happy Rose Hey Lady Stop Was Lover Gonna Call Broken Queen Under Deep Door Friend "
               "Goodbye Somebody Sea Hard Around Music Leave Line Money Walk Into Us Remember Ain't "
               "Believe Nothing Head Keep Ride Easy Fall Hell Wish Winter Train Sleep Break Gold Through "
               "Land Play Heaven Machine Party Everything Cry Body Ghost Touch Ever Someone Hot Shadow "
               "Letter Sound Always Fly Memory Mother Hands Strange Island Silver Real Burning Shine "
               "Cowboy Mountain Miss War Dead Rainbow Young Walking Show Waiting Freedom Gypsy Diamond "
               "Past Midnight Radio Mary Devil Magic Paradise Ocean Wonder Paper Power Kind Mirror "
               "Window Sunday Storm Crying Dancing Electric Air Jesus Hello Children Breathe Song Space "
               "Bird Highway Tears Between Falling Some Stone Sister Once Johnny Holy Brother Wall "
               "Secret Sugar Lucky Green Ready Garden Empty Daddy Running Fool Stand Small Bridge Days "
               "Side Yesterday Tomorrow Saturday Friday Monday Nobody Simple Smile Steel Glass Bones "
               "Weight Wheel Clouds Snow Flowers Country Desire Fever Golden Innocent Jungle Kingdom "
               "Lights Miracle Number Orange Perfect Question Revolution Season Thunder Universe Voice "
               "Whisper Yellow Zero Ashes Bullet Candle Desert Engine Father Gravity Harbour Iron "
               "Journey Lantern Meadow Northern Orchid Pocket Quiet Rhythm Sailor Temple Velvet Willow "
               "Amber Bitter Crystal Distant Echo Fading Gentle Hollow Ivory Jealous")
        .split(u' ');
}

QStringList firstNames()
{
    return QStringLiteral("John David Michael Anna Maria James Paul Robert Peter Sarah Laura Tom Nina Elena "
                          "Marcus Billy Johnny Ella Sam Lucy Max Oscar Rosa Clara Hugo Ivan Mia Leon Frank "
                          "Etta Otis Ray Joan Carla Diego Emil Greta Hanna Igor Jonas Kira Lena Milo Nora "
                          "Olga Pablo Quentin Rita Stella Tara Ugo Vera Wanda Xenia Yara Zeno")
        .split(u' ');
}

/// A word of two to four syllables such as "Tredigra". One in fifty has a letter beyond ASCII.
QString inventedWord(RandomSource &random)
{
    static const QStringList onsets =
        QStringLiteral("b br c ch d dr f fl g gr h j k kl l m n p pr qu r s sh sk sl st t th tr v w z")
            .split(u' ');
    static const QStringList vowels = QStringLiteral("a e i o u a e i o ai ea io ou ee").split(u' ');
    static const QStringList codas = QStringLiteral("n r l s t m ck nd rt ll ng x").split(u' ');
    static const QString accented = u"éöñüåç"_s;
    const auto oneOf = [&random](const QStringList &list) {
        return list[static_cast<qsizetype>(random.below(static_cast<std::size_t>(list.size())))];
    };

    QString word;
    for (std::size_t syllables = 2 + random.weighted({55, 35, 10}); syllables > 0; --syllables) {
        word += oneOf(onsets);
        word += oneOf(vowels);
        if (random.isOneIn(syllables == 1 ? 2 : 5))
            word += oneOf(codas);
    }
    if (random.isOneIn(50))
        word += accented[static_cast<qsizetype>(random.below(static_cast<std::size_t>(accented.size())))];
    word[0] = word[0].toUpper();
    return word;
}

std::vector<QString> allTitleWords()
{
    constexpr std::size_t COUNT = 20'000;
    constexpr std::uint64_t SEED = 1;
    RandomSource random(SEED);
    std::vector<QString> words;
    QSet<QString> known;
    const auto add = [&](const QString &word) {
        if (!known.contains(word)) {
            known.insert(word);
            words.push_back(word);
        }
    };
    for (const QString &word : commonWords())
        add(word);
    while (words.size() < COUNT)
        add(inventedWord(random));
    return words;
}

std::size_t commonWordCount()
{
    const QStringList words = commonWords();
    return static_cast<std::size_t>(QSet<QString>(words.begin(), words.end()).size());
}

} // namespace

ZipfRanks::ZipfRanks(std::size_t count, double offset)
{
    double sum = 0.0;
    for (std::size_t rank = 0; rank < count; ++rank) {
        sum += 1.0 / (static_cast<double>(rank) + offset);
        m_sums.push_back(sum);
    }
}

std::size_t ZipfRanks::draw(RandomSource &random) const
{
    const double point = random.unit() * m_sums.back();
    const auto found = std::upper_bound(m_sums.begin(), m_sums.end() - 1, point);
    return static_cast<std::size_t>(found - m_sums.begin());
}

Vocabulary::Vocabulary()
    : m_titleWords(allTitleWords())
    , m_commonCount(commonWordCount())
    , m_titleRanks(m_titleWords.size(), 2.7)
    , m_rareRanks(m_titleWords.size() - m_commonCount, 100.0)
    , m_nameRanks(static_cast<std::size_t>(firstNames().size()), 5.0)
{
    for (const QString &name : firstNames())
        m_firstNames.push_back(name);
}

const QString &Vocabulary::titleWord(RandomSource &random) const
{
    return m_titleWords[m_titleRanks.draw(random)];
}

const QString &Vocabulary::rareWord(RandomSource &random) const
{
    return m_titleWords[m_commonCount + m_rareRanks.draw(random)];
}

const QString &Vocabulary::firstName(RandomSource &random) const
{
    return m_firstNames[m_nameRanks.draw(random)];
}

} // namespace sonavo
