#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

namespace sonavo {

/// The languages of the program, as in "de" and "zh_CN"; English is the first.
[[nodiscard]] QStringList languages();

/// The language that the user wants most among those of the program; English where it has none of them. Its
/// territory is the user's, so that numbers and dates are written as there.
/// @param wanted codes in order of preference, as of QLocale::uiLanguages()
[[nodiscard]] QLocale bestLocale(const QStringList &wanted);

/// Shows all texts of the program and of Qt in a language, and makes it the default locale, with its numbers
/// and its direction, in place of what was used before. English always has the numbers of the United States.
/// Main thread, after the application is created and before there are other threads or views.
/// @param locale in a language of the program
void useLanguage(const QLocale &locale);

/// The same for the language that the system asks for.
void useSystemLanguage();
/// The same for English.
void useEnglish();

/// A text of the program in the language that the system asks for, where there is no application yet.
[[nodiscard]] QString systemLanguageText(const char *context, const char *text);

} // namespace sonavo
