#include "analysis/further_keys.h"

#include "analysis/normalization.h"

#include <algorithm>

namespace sonavo {
namespace {

using Hash = FurtherKeys::Hash;

/// What a key is made of.
enum class KeyKind : Hash
{
    Gram = 0xCBF29CE484222325,
    Word = 0x9E3779B97F4A7C15,
    Title = 0xC2B2AE3D27D4EB4F,
    Number = 0x165667B19E3779F9
};

/// The scope of all songs with numbers.
constexpr Hash WITH_NUMBERS = 0x27D4EB2F165667C5;

/// FNV-1a (Fowler, Noll and Vo), a character at a time, from a start for each kind.
constexpr Hash hashedWith(Hash hash, char32_t character)
{
    return (hash ^ character) * 1099511628211ULL;
}

template <typename Character>
Hash hashOf(KeyKind kind, std::basic_string_view<Character> text)
{
    auto hash = static_cast<Hash>(kind);
    for (const Character character : text)
        hash = hashedWith(hash, static_cast<char32_t>(character));
    return hash;
}

} // namespace

void FurtherKeys::read(const FurtherSong &song, TrackNumber number, std::uint32_t family)
{
    m_song = &song;
    m_title = titleOf(song, TrackNumber::Kept, Tail::Kept).widened(m_text);
    readGrams(number);
    readWords();
    readScopes(number, family);
}

void FurtherKeys::readGrams(TrackNumber number)
{
    fullTextInto(m_text, *m_song, number, Tail::Kept);
    m_text.insert(m_text.begin(), U' ');
    m_text += U' ';
    if (m_text.size() < GRAM_LENGTH)
        m_text.resize(GRAM_LENGTH, U' ');
    m_grams.clear();
    for (std::size_t i = 0; i + GRAM_LENGTH <= m_text.size(); ++i)
        m_grams.push_back(hashOf(KeyKind::Gram, std::u32string_view(m_text).substr(i, GRAM_LENGTH)));
    m_gramsBeforeTail = m_grams.size() - std::min<std::size_t>(m_song->tailLength, m_grams.size());
    m_gramsOfTitle = std::max(m_title.size() - m_song->numberLength + 2, GRAM_LENGTH) - GRAM_LENGTH;
}

void FurtherKeys::readWords()
{
    const std::u32string_view title = m_title;
    m_words.clear();
    forEachWord(title, [this](std::u32string_view word) { m_words.push_back(hashOf(KeyKind::Word, word)); });
    m_rowOfWords = m_words.size();
    const auto addTo = [](std::vector<Hash> &words, Hash key) {
        if (std::find(words.begin(), words.end(), key) == words.end())
            words.push_back(key);
    };
    m_titleWords.clear();
    forEachTitleWord(title, m_song->numberLength, m_song->tailLength, [&](std::u32string_view word) {
        const Hash key = hashOf(KeyKind::Word, word);
        addTo(m_titleWords, key);
        addTo(m_words, key);
    });
}

void FurtherKeys::readScopes(TrackNumber number, std::uint32_t family)
{
    constexpr std::size_t MOST_NUMBERS = 2;
    const Hash ownScope = scopeOf(family);
    m_scopes.clear();
    if (m_song->numberBits(number) != 0) {
        const std::size_t begin = number == TrackNumber::Kept ? 0 : m_song->numberLength;
        forEachNumber(std::u32string_view(m_title).substr(begin), [&](std::u32string_view digits) {
            const Hash scope = ownScope ^ hashOf(KeyKind::Number, digits);
            if (std::find(m_scopes.begin(), m_scopes.end(), scope) == m_scopes.end())
                m_scopes.push_back(scope);
        });
    }
    m_scopesOfMatches.assign(1, ownScope);
    if (m_scopes.empty() || m_scopes.size() > MOST_NUMBERS) {
        m_scopes.assign(1, ownScope);
        m_scopesOfMatches.push_back(ownScope ^ WITH_NUMBERS);
        return;
    }
    m_scopesOfMatches.insert(m_scopesOfMatches.end(), m_scopes.begin(), m_scopes.end());
    m_scopes.push_back(ownScope ^ WITH_NUMBERS);
}

Hash FurtherKeys::scopeOf(std::uint32_t family)
{
    // The finalizer of MurmurHash3 (A. Appleby, 2011): 0 stays 0, other numbers differ in many bits.
    Hash scope = family;
    scope = (scope ^ scope >> 33) * 0xFF51AFD7ED558CCD;
    scope = (scope ^ scope >> 33) * 0xC4CEB9FE1A85EC53;
    return scope ^ scope >> 33;
}

Hash FurtherKeys::titleKeyOf(const FurtherSong &song)
{
    return titleOf(song, TrackNumber::Dropped, Tail::Kept).visit([](auto title) {
        return hashOf(KeyKind::Title, title);
    });
}

const std::vector<Hash> &FurtherKeys::titlesInTitle()
{
    const std::u32string_view title = std::u32string_view(m_title).substr(m_song->numberLength);
    m_titles.clear();
    for (std::size_t begin = 0; begin < title.size(); ++begin) {
        if (begin > 0 && title[begin - 1] != U' ')
            continue;
        auto hash = static_cast<Hash>(KeyKind::Title);
        for (std::size_t end = begin; end < title.size(); ++end) {
            hash = hashedWith(hash, title[end]);
            if (end + 1 == title.size() || title[end + 1] == U' ')
                m_titles.push_back(hash);
        }
    }
    return m_titles;
}

} // namespace sonavo
