#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <gst/gst.h>
#include <memory>
#include <optional>

namespace sonavo {

/// The GStreamer pipeline that plays one file. Not Qt Multimedia: version 6.4 has no exact seek, and in files
/// without an index, such as raw AAC, it was several seconds off.
///
/// May be constructed in any thread; afterwards it is used, and destroyed, in the audio thread only, since
/// any call can block on the file or on the sound server. After an error it stays silent.
class AudioPipeline : public QObject
{
public:
    /// @param position set to the second that is heard, while it plays
    AudioPipeline(QString path, std::shared_ptr<std::atomic<double>> position);
    ~AudioPipeline() override;

    /// Opens the file and prerolls. To be called once, before anything else.
    void load();

    void play();
    void pause();

    /// @param volume linear gain, 0.0 to 1.0
    void setVolume(double volume);

    /// Seeks exactly, as soon as the file is loaded; the last call wins. Whether it plays does not change.
    /// @param seconds clamped to the song's length
    void seek(qint64 seconds);

    /// Stops and closes the file, for good.
    void close();

private:
    struct Unref
    {
        void operator()(GstElement *element) const { gst_object_unref(element); }
    };

    [[nodiscard]] bool build();
    /// @return the new element, owned by the pipeline; null where its plug-in is missing
    [[nodiscard]] GstElement *addElement(const char *factory);
    void handlePreroll();
    /// Brings the pipeline to the state and position that were last asked for.
    void applyRequests();
    void seekNow();
    void reload();
    void updatePosition();
    static GstBusSyncReply handleBusMessage(GstBus *bus, GstMessage *message, gpointer self);

    const QString m_path;
    const std::shared_ptr<std::atomic<double>> m_position;
    std::unique_ptr<GstElement, Unref> m_pipeline;
    // Owned by the pipeline.
    GstElement *m_volume = nullptr;
    GstElement *m_sink = nullptr;
    bool m_isPrerolled = false;
    bool m_isAtEnd = false;
    bool m_isPlaying = false;
    bool m_shouldPlay = false;
    std::optional<GstClockTime> m_seekTarget;
    QTimer m_throttle;
    QTimer m_positionTimer;
};

} // namespace sonavo
