#include "session/audio_formats.h"

#include <array>
#include <utility>

namespace sonavo {

QStringView pathExtension(QStringView path)
{
    const QStringView name = path.sliced(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1) : QStringView();
}

std::optional<AudioFormat> audioFormatOf(QStringView path)
{
    static constexpr std::array<std::pair<QStringView, AudioFormat>, 5> FORMATS{{
        {u"mp3", AudioFormat::Mp3},
        {u"m4a", AudioFormat::M4a},
        {u"wav", AudioFormat::Wav},
        {u"aac", AudioFormat::Aac},
        {u"flac", AudioFormat::Flac},
    }};
    const QStringView extension = pathExtension(path);
    for (const auto &[name, format] : FORMATS) {
        if (extension.compare(name, Qt::CaseInsensitive) == 0)
            return format;
    }
    return std::nullopt;
}

} // namespace sonavo
