#include "import/known_durations.h"

#include <utility>

namespace sonavo {

std::optional<Sound> KnownDurations::find(const QString &path, const FileVersion &version)
{
    const std::lock_guard lock(m_mutex);
    const auto entry = m_entries.find(qHash(path));
    if (entry == m_entries.end() || entry->version != version)
        return std::nullopt;
    entry->isUsed = true;
    return entry->sound;
}

void KnownDurations::add(const QString &path, const FileVersion &version, qint64 opened, const Sound &sound)
{
    constexpr qint64 MIN_AGE = 3'000'000'000;
    const size_t key = qHash(path);
    const std::lock_guard lock(m_mutex);
    if (opened - version.note.modified < MIN_AGE)
        m_entries.remove(key);
    else if (m_entries.size() < MAX_FILES || m_entries.contains(key))
        m_entries.insert(key, {version, sound, true});
}

void KnownDurations::forgetUnused()
{
    const std::lock_guard lock(m_mutex);
    m_entries.removeIf(
        [](QHash<size_t, Entry>::iterator entry) { return !std::exchange(entry.value().isUsed, false); });
    m_entries.squeeze();
}

} // namespace sonavo
