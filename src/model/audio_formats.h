#pragma once

#include <QStringList>
#include <QStringView>

#include <optional>

namespace sonavo {

/// The audio formats that are scanned, each recognised by its file extension.
enum class AudioFormat
{
    Mp3,
    M4a,
    Wav,
    Aac,
    Flac
};

/// The file extensions of all formats, in lower case, without the dot.
[[nodiscard]] QStringList audioExtensions();

/// The format that a path's extension stands for, in upper or lower case; empty for any other extension. The
/// file is not looked at.
[[nodiscard]] std::optional<AudioFormat> audioFormatOf(QStringView path);

/// Whether files of a format keep the samples as they were recorded: FLAC, and WAV, which nearly always holds
/// them as they are. An M4A file can as well, but its name does not tell.
[[nodiscard]] bool isLossless(AudioFormat format);

} // namespace sonavo
