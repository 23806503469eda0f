#include "desktop/audio_pipeline.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

using namespace std::chrono_literals;

/// The PulseAudio sink loses track of its clock when it is stopped before it has properly started.
constexpr auto MIN_CHANGE_INTERVAL = 50ms;
constexpr auto POSITION_INTERVAL = 100ms;

/// Links the first audio pad of the decoder to `queue`.
void linkDecoder(GstElement *, GstPad *decoded, gpointer queue)
{
    GstPad *sink = gst_element_get_static_pad(static_cast<GstElement *>(queue), "sink");
    if (!gst_pad_is_linked(sink))
        gst_pad_link(decoded, sink);
    gst_object_unref(sink);
}

} // namespace

AudioPipeline::AudioPipeline(QString path, std::shared_ptr<std::atomic<double>> position)
    : m_path(std::move(path))
    , m_position(std::move(position))
    , m_throttle(this)
    , m_positionTimer(this)
{
    m_throttle.setSingleShot(true);
    m_throttle.setInterval(MIN_CHANGE_INTERVAL);
    connect(&m_throttle, &QTimer::timeout, this, &AudioPipeline::applyRequests);
    m_positionTimer.setInterval(POSITION_INTERVAL);
    connect(&m_positionTimer, &QTimer::timeout, this, &AudioPipeline::updatePosition);
}

AudioPipeline::~AudioPipeline()
{
    close();
}

void AudioPipeline::load()
{
    // Opening anything but a regular file, such as a pipe, can block for ever.
    if (!QFileInfo(m_path).isFile() || !gst_init_check(nullptr, nullptr, nullptr))
        return;
    if (!build() || gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE)
        close();
}

void AudioPipeline::play()
{
    m_shouldPlay = true;
    applyRequests();
}

void AudioPipeline::pause()
{
    m_shouldPlay = false;
    applyRequests();
}

void AudioPipeline::setVolume(double volume)
{
    // Not the volume of the sink: the sound server would remember it for the next song.
    if (m_volume)
        g_object_set(m_volume, "volume", volume, nullptr);
}

void AudioPipeline::seek(qint64 seconds)
{
    constexpr qint64 MAX_SECONDS = 1'000'000'000; // fits into GstClockTime's nanoseconds
    m_seekTarget = static_cast<GstClockTime>(std::clamp<qint64>(seconds, 0, MAX_SECONDS)) * GST_SECOND;
    applyRequests();
}

void AudioPipeline::close()
{
    m_isPrerolled = false;
    m_throttle.stop();
    m_positionTimer.stop();
    if (m_pipeline)
        gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    m_volume = nullptr;
    m_pipeline.reset();
}

bool AudioPipeline::build()
{
    m_pipeline.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    GstElement *source = addElement("filesrc");
    GstElement *decoder = addElement("decodebin");
    GstElement *queue = addElement("queue");
    GstElement *convert = addElement("audioconvert");
    GstElement *resample = addElement("audioresample");
    m_volume = addElement("volume");
    m_sink = addElement("autoaudiosink");
    if (!source || !decoder || !queue || !convert || !resample || !m_volume || !m_sink ||
        !gst_element_link(source, decoder) ||
        !gst_element_link_many(queue, convert, resample, m_volume, m_sink, nullptr))
        return false;

    g_object_set(source, "location", QFile::encodeName(m_path).constData(), nullptr);
    // Cover pictures are not decoded.
    GstCaps *audio = gst_caps_new_empty_simple("audio/x-raw");
    g_object_set(decoder, "caps", audio, "expose-all-streams", FALSE, nullptr);
    gst_caps_unref(audio);
    g_signal_connect(decoder, "pad-added", G_CALLBACK(linkDecoder), queue);

    GstBus *bus = gst_element_get_bus(m_pipeline.get());
    gst_bus_set_sync_handler(bus, handleBusMessage, this, nullptr);
    gst_object_unref(bus);
    return true;
}

GstElement *AudioPipeline::addElement(const char *factory)
{
    GstElement *element = gst_element_factory_make(factory, nullptr);
    if (element)
        gst_bin_add(GST_BIN(m_pipeline.get()), element);
    return element;
}

void AudioPipeline::handlePreroll()
{
    const bool isPrerolled = m_pipeline && gst_element_get_state(m_pipeline.get(), nullptr, nullptr, 0) ==
                                               GST_STATE_CHANGE_SUCCESS;
    if (m_isPrerolled || !isPrerolled)
        return;
    m_isPrerolled = true;
    applyRequests();
}

void AudioPipeline::applyRequests()
{
    if (!m_isPrerolled || m_throttle.isActive())
        return;
    if (m_seekTarget && m_isAtEnd) {
        reload();
        return;
    }
    if (!m_seekTarget && m_isPlaying == m_shouldPlay)
        return;
    if (m_seekTarget)
        seekNow();
    m_isPlaying = m_shouldPlay;
    gst_element_set_state(m_pipeline.get(), m_isPlaying ? GST_STATE_PLAYING : GST_STATE_PAUSED);
    m_throttle.start();
    m_isPlaying ? m_positionTimer.start() : m_positionTimer.stop();
}

void AudioPipeline::seekNow()
{
    // Without ACCURATE, the position in a file without an index is guessed from its bit rate, seconds off.
    constexpr auto FLAGS = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    gst_element_seek_simple(m_pipeline.get(), GST_FORMAT_TIME, FLAGS, static_cast<gint64>(*m_seekTarget));
    m_seekTarget.reset();
}

void AudioPipeline::reload()
{
    // At the end of a song the PulseAudio sink can lose track of its clock, and would schedule the next
    // buffer centuries ahead.
    m_isPrerolled = false;
    m_isAtEnd = false;
    m_isPlaying = false;
    gst_element_set_state(m_pipeline.get(), GST_STATE_READY);
    gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
}

void AudioPipeline::updatePosition()
{
    gint64 nanoseconds = 0;
    if (m_isPrerolled && !m_seekTarget &&
        gst_element_query_position(m_pipeline.get(), GST_FORMAT_TIME, &nanoseconds))
        *m_position = static_cast<double>(nanoseconds) / static_cast<double>(GST_SECOND);
}

GstBusSyncReply AudioPipeline::handleBusMessage(GstBus *, GstMessage *message, gpointer self)
{
    // Called in streaming threads; close() joins them, so `self` outlives every call.
    auto *pipeline = static_cast<AudioPipeline *>(self);
    const GstMessageType type = GST_MESSAGE_TYPE(message);
    // A sink that finds no device only warns, and discards the sound.
    const bool hasNoDevice =
        type == GST_MESSAGE_WARNING && GST_MESSAGE_SRC(message) == GST_OBJECT(pipeline->m_sink);
    if (type == GST_MESSAGE_ERROR || hasNoDevice)
        QMetaObject::invokeMethod(pipeline, &AudioPipeline::close, Qt::QueuedConnection);
    else if (type == GST_MESSAGE_ASYNC_DONE)
        QMetaObject::invokeMethod(pipeline, &AudioPipeline::handlePreroll, Qt::QueuedConnection);
    else if (type == GST_MESSAGE_EOS)
        QMetaObject::invokeMethod(
            pipeline, [pipeline] { pipeline->m_isAtEnd = true; }, Qt::QueuedConnection);
    gst_message_unref(message);
    return GST_BUS_DROP;
}

} // namespace sonavo
