#pragma once

#include <QStringList>
#include <QStringView>

#include <optional>

namespace sonavo {

/// The kinds of audio file that take part in a session, each known by its file extension.
enum class AudioFormat
{
    Mp3,
    M4a,
    Wav,
    Aac,
    Flac
};

/// The file extensions of all formats, in small letters and without a dot.
[[nodiscard]] QStringList audioExtensions();

/// The audio format that a path's extension names, in any case. Nothing but the name is looked at.
[[nodiscard]] std::optional<AudioFormat> audioFormatOf(QStringView path);

} // namespace sonavo
