#include "model/audio_formats.h"

#include "model/file_name.h"

#include <array>
#include <utility>

namespace sonavo {

namespace {

constexpr std::array<std::pair<QStringView, AudioFormat>, 5> FORMATS{{
    {u"mp3", AudioFormat::Mp3},
    {u"m4a", AudioFormat::M4a},
    {u"wav", AudioFormat::Wav},
    {u"aac", AudioFormat::Aac},
    {u"flac", AudioFormat::Flac},
}};

} // namespace

QStringList audioExtensions()
{
    QStringList extensions;
    for (const auto &[name, format] : FORMATS)
        extensions.append(name.toString());
    return extensions;
}

std::optional<AudioFormat> audioFormatOf(QStringView path)
{
    const QStringView extension = pathExtension(path);
    for (const auto &[name, format] : FORMATS) {
        if (extension.compare(name, Qt::CaseInsensitive) == 0)
            return format;
    }
    return std::nullopt;
}

bool isLossless(AudioFormat format)
{
    return format == AudioFormat::Flac || format == AudioFormat::Wav;
}

} // namespace sonavo
