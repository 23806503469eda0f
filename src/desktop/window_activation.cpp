#include "desktop/window_activation.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>
#include <xcb/xcb.h>

namespace sonavo {
namespace {

/// When the user has done what an identifier such as "files-17_TIME4711" stands for, in milliseconds of the X
/// server.
/// @return 0, the protocol's "unknown", when it does not tell
xcb_timestamp_t timeOf(const QString &startupId)
{
    const QString mark = QStringLiteral("_TIME");
    const qsizetype at = startupId.lastIndexOf(mark);
    return at < 0 ? 0 : startupId.mid(at + mark.size()).toUInt();
}

/// Client messages to the window manager and to what shows that programs start.
class RootMessages
{
public:
    RootMessages(xcb_connection_t &connection, const QWindow &window)
        : m_connection(connection)
        , m_window(static_cast<xcb_window_t>(window.winId()))
    {}

    /// EWMH, _NET_ACTIVE_WINDOW, from an application.
    void activate(xcb_timestamp_t time) const
    {
        constexpr uint32_t FROM_APPLICATION = 1;
        xcb_client_message_event_t message = newMessage("_NET_ACTIVE_WINDOW", 32);
        message.data.data32[0] = FROM_APPLICATION;
        message.data.data32[1] = time;
        send(message, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
    /// Startup Notification Protocol, "remove", in pieces of 20 bytes of which the last one ends with 0.
    void endStartupNotice(const QString &startupId) const
    {
        QByteArray text =
            "remove: ID=\"" + startupId.toUtf8().replace('\\', "\\\\").replace('"', "\\\"") + '"';
        text.append('\0');
        const char *type = "_NET_STARTUP_INFO_BEGIN";
        for (qsizetype at = 0; at < text.size(); at += MESSAGE_BYTES) {
            xcb_client_message_event_t message = newMessage(std::exchange(type, "_NET_STARTUP_INFO"), 8);
            const qsizetype size = std::min(MESSAGE_BYTES, text.size() - at);
            std::memcpy(message.data.data8, text.constData() + at, static_cast<std::size_t>(size));
            send(message, XCB_EVENT_MASK_PROPERTY_CHANGE);
        }
    }

private:
    static constexpr qsizetype MESSAGE_BYTES = 20;

    [[nodiscard]] xcb_client_message_event_t newMessage(const char *type, uint8_t format) const
    {
        const auto length = static_cast<uint16_t>(std::strlen(type));
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(&m_connection, xcb_intern_atom(&m_connection, 0, length, type), nullptr),
            &std::free);
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = format;
        message.window = m_window;
        message.type = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
        return message;
    }
    void send(const xcb_client_message_event_t &message, uint32_t mask) const
    {
        // Qt on X11 uses one screen only.
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(&m_connection)).data->root;
        xcb_send_event(&m_connection, 0, root, mask, reinterpret_cast<const char *>(&message));
        xcb_flush(&m_connection);
    }

    xcb_connection_t &m_connection;
    xcb_window_t m_window;
};

} // namespace

void bringToFront(QWindow &window, const QString &token)
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Where Qt looks for it.
    if (!x11 && !token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    // Others, such as maximized, are kept.
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.setVisible(true); // show() would make it normal
    window.raise();
    window.requestActivate();
    if (!x11 || token.isEmpty())
        return;
    // Qt has asked with the time of this program's last event. Another one may have been used since then.
    const RootMessages messages(*x11->connection(), window);
    if (const xcb_timestamp_t time = timeOf(token); time != 0)
        messages.activate(time);
    messages.endStartupNotice(token);
}

} // namespace sonavo
