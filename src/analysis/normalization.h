#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <string>
#include <string_view>

namespace sonavo {

/// The form in which texts are compared: lower-cased (Unicode), the brackets ( ) [ ] { } removed, and every
/// other run of characters that are not ASCII letters or digits turned into one blank; no blank at either
/// end. "Song (Live) [2019 Remaster]" gives "song live 2019 remaster".
///
/// The result holds only 'a' to 'z', '0' to '9' and single blanks, and may be empty: accented letters and
/// other scripts count as separators. Pure; any thread may call it.
[[nodiscard]] std::string normalizeString(QStringView text);

/// The two halves of normalizeString(), for those who need the lower-cased text as well. They overwrite
/// `result` and reuse its memory.
void lowerInto(QString &result, const QString &text);
void normalizeLoweredInto(std::string &result, QStringView loweredText);

/// normalizeString() for every script: compatibility forms and accents are taken off (NFKD of the Unicode
/// Standard Annex #15), letter case is folded, brackets are removed, and every other run of characters that
/// are not letters, digits or vowel signs is turned into one blank; no blank at either end. "Café (ＬＩＶＥ)"
/// gives "cafe live", "Й" gives "и". Marks that make another letter of a kana stay, and so do the vowel signs
/// of scripts that write vowels as marks.
///
/// The result holds code points and may be empty; it is composed (NFC), so that a syllable of Hangul is one.
/// Pure; any thread may call it.
[[nodiscard]] std::u32string normalizeAllScripts(const QString &text);

/// Whether a character belongs to a script in which a word can be one character long or words are not
/// separated: Han, kana, Hangul, Thai, Lao, Khmer and Burmese.
[[nodiscard]] bool isOfScriptWithShortWords(char32_t character);

/// Calls `visit` with each word of a normalised text, in order: its pieces between blanks, never empty.
template <typename Character, typename Visit>
void forEachWord(std::basic_string_view<Character> normalized, Visit visit)
{
    while (!normalized.empty()) {
        const std::size_t end = std::min(normalized.find(Character{' '}), normalized.size());
        if (end > 0)
            visit(normalized.substr(0, end));
        normalized.remove_prefix(std::min(end + 1, normalized.size()));
    }
}

} // namespace sonavo
