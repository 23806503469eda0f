#include "desktop/playback.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

using namespace std::chrono_literals;

/// The least time between two changes of what is heard. The PulseAudio sink loses count of time when the
/// sound stops before it has properly started.
constexpr auto PACE = 50ms;

/// Links the first sound that is found in a song to the sink in `queue`.
void linkSound(GstElement *, GstPad *sound, gpointer queue)
{
    GstPad *sink = gst_element_get_static_pad(static_cast<GstElement *>(queue), "sink");
    if (!gst_pad_is_linked(sink))
        gst_pad_link(sound, sink);
    gst_object_unref(sink);
}

} // namespace

Playback::Playback(QString path)
    : m_path(std::move(path))
    , m_pace(this)
{
    m_pace.setSingleShot(true);
    m_pace.setInterval(PACE);
    connect(&m_pace, &QTimer::timeout, this, &Playback::proceed);
}

Playback::~Playback()
{
    close();
}

void Playback::load()
{
    // Other things than files, such as pipes, could be waited for without end.
    if (!QFileInfo(m_path).isFile() || !gst_init_check(nullptr, nullptr, nullptr))
        return;
    if (!build() || gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE)
        close();
}

void Playback::play()
{
    m_isToPlay = true;
    proceed();
}

void Playback::pause()
{
    m_isToPlay = false;
    proceed();
}

void Playback::setVolume(double volume)
{
    // Not the volume of the sink: the sound server would remember it for the next song.
    if (m_volume)
        g_object_set(m_volume, "volume", volume, nullptr);
}

void Playback::seek(qint64 seconds)
{
    constexpr qint64 LONGEST = 1'000'000'000;
    m_seekTarget = static_cast<GstClockTime>(std::clamp<qint64>(seconds, 0, LONGEST)) * GST_SECOND;
    proceed();
}

void Playback::close()
{
    m_isReady = false;
    m_pace.stop();
    if (m_pipeline)
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    m_volume = nullptr;
    m_pipeline.reset();
}

bool Playback::build()
{
    m_pipeline.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    GstElement *source = add("filesrc");
    GstElement *decoder = add("decodebin");
    GstElement *queue = add("queue");
    GstElement *convert = add("audioconvert");
    GstElement *resample = add("audioresample");
    m_volume = add("volume");
    m_sink = add("autoaudiosink");
    if (!source || !decoder || !queue || !convert || !resample || !m_volume || !m_sink ||
        !gst_element_link(source, decoder) ||
        !gst_element_link_many(queue, convert, resample, m_volume, m_sink, nullptr))
        return false;

    g_object_set(source, "location", QFile::encodeName(m_path).constData(), nullptr);
    // Pictures are not decoded.
    GstCaps *sound = gst_caps_new_empty_simple("audio/x-raw");
    g_object_set(decoder, "caps", sound, "expose-all-streams", FALSE, nullptr);
    gst_caps_unref(sound);
    g_signal_connect(decoder, "pad-added", G_CALLBACK(linkSound), queue);

    GstBus *bus = gst_element_get_bus(m_pipeline.get());
    gst_bus_set_sync_handler(bus, receive, this, nullptr);
    gst_object_unref(bus);
    return true;
}

GstElement *Playback::add(const char *factory)
{
    GstElement *element = gst_element_factory_make(factory, nullptr);
    if (element)
        gst_bin_add(GST_BIN(m_pipeline.get()), element);
    return element;
}

void Playback::becomeReady()
{
    const bool isLoaded = m_pipeline && gst_element_get_state(m_pipeline.get(), nullptr, nullptr, 0) ==
                                            GST_STATE_CHANGE_SUCCESS;
    if (m_isReady || !isLoaded)
        return;
    m_isReady = true;
    proceed();
}

void Playback::proceed()
{
    if (!m_isReady || m_pace.isActive())
        return;
    if (m_seekTarget && m_isAtEnd) {
        loadAnew();
        return;
    }
    if (!m_seekTarget && m_isPlaying == m_isToPlay)
        return;
    if (m_seekTarget)
        seekNow();
    m_isPlaying = m_isToPlay;
    gst_element_set_state(m_pipeline.get(), m_isPlaying ? GST_STATE_PLAYING : GST_STATE_PAUSED);
    m_pace.start();
}

void Playback::seekNow()
{
    // Without an index, the place is found by reading: a guess from the bit rate can be off by many seconds.
    constexpr auto EXACTLY = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    gst_element_seek_simple(m_pipeline.get(), GST_FORMAT_TIME, EXACTLY, static_cast<gint64>(*m_seekTarget));
    m_seekTarget.reset();
}

void Playback::loadAnew()
{
    // The PulseAudio sink can have lost count of time at the end: its next sound would come in centuries.
    m_isReady = false;
    m_isAtEnd = false;
    m_isPlaying = false;
    gst_element_set_state(m_pipeline.get(), GST_STATE_READY);
    gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
}

GstBusSyncReply Playback::receive(GstBus *, GstMessage *message, gpointer self)
{
    // In whatever thread has something to say; none has any more when the pipeline is gone.
    auto *playback = static_cast<Playback *>(self);
    const GstMessageType type = GST_MESSAGE_TYPE(message);
    // A sink without any device warns of that, and swallows the sound.
    const bool hasNoDevice =
        type == GST_MESSAGE_WARNING && GST_MESSAGE_SRC(message) == GST_OBJECT(playback->m_sink);
    if (type == GST_MESSAGE_ERROR || hasNoDevice)
        QMetaObject::invokeMethod(playback, &Playback::close, Qt::QueuedConnection);
    else if (type == GST_MESSAGE_ASYNC_DONE)
        QMetaObject::invokeMethod(playback, &Playback::becomeReady, Qt::QueuedConnection);
    else if (type == GST_MESSAGE_EOS)
        QMetaObject::invokeMethod(
            playback, [playback] { playback->m_isAtEnd = true; }, Qt::QueuedConnection);
    gst_message_unref(message);
    return GST_BUS_DROP;
}

} // namespace sonavo
