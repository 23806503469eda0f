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

/// Whether files of a format nearly always keep the samples as they were recorded: FLAC and WAV. The content
/// of a file can tell otherwise; see LosslessSongs.
[[nodiscard]] bool isLossless(AudioFormat format);

} // namespace sonavo
