#pragma once

#include "model/audio_formats.h"
#include "model/song.h"

#include <QSet>
#include <QUuid>

#include <optional>

namespace sonavo {

/// Which songs keep the samples as they were recorded. The extension tells that of most files (see
/// isLossless()), so that only the others take memory: ALAC in M4A files, compressed WAV, and files whose
/// content is not what their name says.
class LosslessSongs
{
public:
    /// Notes what a song's content is.
    void add(const Song &song, bool isLossless)
    {
        if (isLossless != isLosslessByName(song))
            m_unlikeTheirNames.insert(song.id);
    }

    /// A song that was not added counts as what its extension tells.
    [[nodiscard]] bool contains(const Song &song) const
    {
        return isLosslessByName(song) != m_unlikeTheirNames.contains(song.id);
    }

private:
    static bool isLosslessByName(const Song &song)
    {
        const std::optional<AudioFormat> format = audioFormatOf(song.path);
        return format && isLossless(*format);
    }

    QSet<QUuid> m_unlikeTheirNames;
};

} // namespace sonavo
