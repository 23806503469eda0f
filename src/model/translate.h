#pragma once

#include <QCoreApplication>
#include <QString>

#include <algorithm>
#include <limits>

namespace sonavo {

/// A text in the language of the user, or the text itself where no catalogue has it. Any thread.
/// @param context groups the texts of a catalogue
/// @param comment for the translator
[[nodiscard]] inline QString translate(const char *context, const char *text, const char *comment = nullptr)
{
    return QCoreApplication::translate(context, text, comment);
}

/// The same for a text with a number, in the plural form that the number asks for.
/// @param text with %n or %Ln where the number goes; %Ln has separators as the locale asks for. In English it
/// is the plural, and the catalogue of English has the singular.
/// @param number not negative
[[nodiscard]] inline QString translate(const char *context, const char *text, const char *comment,
                                       qint64 number)
{
    constexpr qint64 LARGEST = std::numeric_limits<int>::max();
    return QCoreApplication::translate(context, text, comment,
                                       static_cast<int>(std::clamp<qint64>(number, 0, LARGEST)));
}

} // namespace sonavo
