#include "analysis/further_texts.h"

#include <algorithm>

namespace sonavo {

void FurtherTexts::remove(Position song)
{
    if (!m_places)
        return;
    for (std::size_t number = firstNumberOf(song); number < m_texts.size() && songOf(number) == song;
         ++number)
        m_places->remove(number);
}

std::size_t FurtherTexts::firstNumberOf(Position song) const
{
    const auto isBefore = [](const Text &text, Position other) { return text.song < other; };
    const auto text = std::lower_bound(m_texts.begin(), m_texts.end(), song, isBefore);
    return static_cast<std::size_t>(text - m_texts.begin());
}

} // namespace sonavo
