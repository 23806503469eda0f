#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <gst/gst.h>
#include <memory>
#include <optional>

namespace sonavo {

/// The sound of one song, by GStreamer itself: Qt Multimedia 6.4 offers no exact seek, and in files without
/// an index, such as raw AAC, its guess was several seconds off. Once constructed it is used, and destroyed,
/// only in the sound thread: any call can wait, for a file or for the sound server. After any failure it
/// stays silent.
class Playback : public QObject
{
public:
    explicit Playback(QString path);
    ~Playback() override;

    /// Opens the file and gets its sound ready; to be called once, before all else.
    void load();

    void play();
    void pause();

    /// @param volume from 0.0 to 1.0
    void setVolume(double volume);

    /// Goes to a second of the song, when the song is ready; what plays goes on playing from there.
    void seek(qint64 seconds);

    /// Ends the sound and lets go of the file.
    void close();

private:
    struct Unref
    {
        void operator()(GstElement *element) const { gst_object_unref(element); }
    };

    [[nodiscard]] bool build();
    /// @return the element, which belongs to the pipeline; null when there is no such element
    [[nodiscard]] GstElement *add(const char *factory);
    void becomeReady();
    /// Does what was asked for, as soon as possible.
    void proceed();
    void seekNow();
    void loadAnew();
    static GstBusSyncReply receive(GstBus *bus, GstMessage *message, gpointer self);

    const QString m_path;
    std::unique_ptr<GstElement, Unref> m_pipeline;
    /// Parts of the pipeline.
    GstElement *m_volume = nullptr;
    GstElement *m_sink = nullptr;
    bool m_isReady = false;
    bool m_isAtEnd = false;
    bool m_isPlaying = false;
    bool m_isToPlay = false;
    std::optional<GstClockTime> m_seekTarget;
    QTimer m_pace;
};

} // namespace sonavo
