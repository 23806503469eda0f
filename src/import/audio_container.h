#pragma once

#include "model/audio_formats.h"

#include <QtGlobal>

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>

struct AVFormatContext;
struct AVIOContext;
struct AVStream;

namespace sonavo {

class RegularFile;

/// Detects a file's audio format by its content, whatever its name. Waits for the disk; any thread may call
/// it.
/// @param contentOffset bytes of tags in front of the content
/// @return nothing for what is none of the five formats, cannot be read, or is MP3 or AAC of less than a
/// tenth of a second without a header, which random bytes can look like
[[nodiscard]] std::optional<AudioFormat> detectAudioFormat(const RegularFile &file, qint64 contentOffset);

/// A file opened by libavformat as a container of one format. Only that format is understood, and no other
/// file or address that the file refers to is opened. Reads wait for the disk and fail once stop is
/// requested. Any thread may use it, but only one at a time.
class AudioContainer
{
public:
    /// Reads the header.
    /// @param file must outlive the container
    AudioContainer(const RegularFile &file, AudioFormat format, std::stop_token stop);
    ~AudioContainer();
    Q_DISABLE_COPY_MOVE(AudioContainer)

    /// Whether the file is a container of the format with an audio stream. If not, nothing else may be
    /// called; otherwise durations are those of its first audio stream.
    [[nodiscard]] bool hasAudio() const { return m_audio != nullptr; }

    /// The playing time that the container states.
    /// @return seconds, nothing where it states none or zero
    [[nodiscard]] std::optional<double> storedDuration() const;

    /// The playing time as the sum of the lengths of all packets. Reads the whole file; to be called once.
    /// @return seconds; nothing when the file could not be read to its end, or has no frame in a format
    /// without a header
    [[nodiscard]] std::optional<double> countedDuration();

private:
    struct IoDeleter
    {
        void operator()(AVIOContext *io) const;
    };
    struct ContextDeleter
    {
        void operator()(AVFormatContext *context) const;
    };

    static int readPacket(void *self, std::uint8_t *target, int size);
    static std::int64_t seek(void *self, std::int64_t offset, int whence);
    [[nodiscard]] double seconds(std::int64_t ticks) const;

    const RegularFile &m_file;
    const AudioFormat m_format;
    const std::stop_token m_stop;
    std::int64_t m_offset = 0;
    bool m_hasReadError = false;
    std::unique_ptr<AVIOContext, IoDeleter> m_io;
    std::unique_ptr<AVFormatContext, ContextDeleter> m_context;
    AVStream *m_audio = nullptr;
};

} // namespace sonavo
