#include "tests/outside/screenclient.h"

#include <QThread>

#include <cstdlib>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

constexpr unsigned long kHandMs = 30; // between two movements of a hand
constexpr quint8 kLeftButton = 1;
constexpr quint32 kShift = 0xffe1;

template <typename T>
std::unique_ptr<T, decltype(&std::free)> owned(T *reply)
{
    return {reply, &std::free};
}

} // namespace

struct ScreenClient::Private
{
    xcb_connection_t *link = nullptr;
    const xcb_screen_t *screen = nullptr;

    void send(quint8 type, quint8 detail, const QPoint &place = {}) const
    {
        xcb_test_fake_input(link, type, detail, XCB_CURRENT_TIME, screen->root,
                            static_cast<qint16>(place.x()), static_cast<qint16>(place.y()), 0);
        xcb_flush(link);
    }

    xcb_atom_t atom(const char *name) const
    {
        const auto reply = owned(xcb_intern_atom_reply(
            link, xcb_intern_atom(link, 0, static_cast<quint16>(qstrlen(name)), name), nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    QByteArray titleOf(xcb_window_t window) const
    {
        const auto reply = owned(xcb_get_property_reply(
            link, xcb_get_property(link, 0, window, atom("_NET_WM_NAME"), XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
            nullptr));
        if (!reply)
            return {};
        return {static_cast<const char *>(xcb_get_property_value(reply.get())),
                xcb_get_property_value_length(reply.get())};
    }

    bool isSeen(xcb_window_t window) const
    {
        const auto reply =
            owned(xcb_get_window_attributes_reply(link, xcb_get_window_attributes(link, window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    xcb_window_t find(const QString &title) const
    {
        const auto tree = owned(xcb_query_tree_reply(link, xcb_query_tree(link, screen->root), nullptr));
        if (!tree)
            return XCB_WINDOW_NONE;
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
            if (titleOf(children[i]).startsWith(title.toUtf8()) && isSeen(children[i]))
                return children[i];
        }
        return XCB_WINDOW_NONE;
    }

    // The key that carries the symbol, and whether it needs the shift key.
    quint8 keyOf(quint32 keysym, bool &shifted) const
    {
        const xcb_setup_t *setup = xcb_get_setup(link);
        const auto count = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
        const auto map = owned(xcb_get_keyboard_mapping_reply(
            link, xcb_get_keyboard_mapping(link, setup->min_keycode, count), nullptr));
        if (!map)
            return 0;
        const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(map.get());
        for (int code = 0; code < count; ++code) {
            for (int column = 0; column < 2; ++column) {
                if (symbols[code * map->keysyms_per_keycode + column] != keysym)
                    continue;
                shifted = column == 1;
                return static_cast<quint8>(setup->min_keycode + code);
            }
        }
        return 0;
    }
};

ScreenClient::ScreenClient(const QString &display)
    : d(std::make_unique<Private>())
{
    d->link = xcb_connect(display.toLatin1().constData(), nullptr);
    if (isGood())
        d->screen = xcb_setup_roots_iterator(xcb_get_setup(d->link)).data;
}

ScreenClient::~ScreenClient()
{
    xcb_disconnect(d->link);
}

bool ScreenClient::isGood() const
{
    return xcb_connection_has_error(d->link) == 0;
}

void ScreenClient::move(const QPoint &place)
{
    d->send(XCB_MOTION_NOTIFY, 0, place);
    QThread::msleep(kHandMs);
}

void ScreenClient::press()
{
    d->send(XCB_BUTTON_PRESS, kLeftButton);
    QThread::msleep(kHandMs);
}

void ScreenClient::release()
{
    d->send(XCB_BUTTON_RELEASE, kLeftButton);
    QThread::msleep(kHandMs);
}

void ScreenClient::click(const QPoint &place)
{
    move(place);
    press();
    release();
}

void ScreenClient::key(quint32 keysym)
{
    bool shifted = false;
    bool ignored = false;
    const quint8 code = d->keyOf(keysym, shifted);
    const quint8 shift = d->keyOf(kShift, ignored);
    if (code == 0)
        return;
    if (shifted)
        d->send(XCB_KEY_PRESS, shift);
    d->send(XCB_KEY_PRESS, code);
    d->send(XCB_KEY_RELEASE, code);
    if (shifted)
        d->send(XCB_KEY_RELEASE, shift);
    QThread::msleep(kHandMs);
}

void ScreenClient::type(const QString &text)
{
    for (const QChar character : text)
        key(character.unicode());
}

QImage ScreenClient::look(const QRect &place) const
{
    const auto reply = owned(xcb_get_image_reply(
        d->link,
        xcb_get_image(d->link, XCB_IMAGE_FORMAT_Z_PIXMAP, d->screen->root, static_cast<qint16>(place.x()),
                      static_cast<qint16>(place.y()), static_cast<quint16>(place.width()),
                      static_cast<quint16>(place.height()), ~0U),
        nullptr));
    if (!reply)
        return {};
    return QImage(xcb_get_image_data(reply.get()), place.width(), place.height(), QImage::Format_RGB32)
        .copy();
}

bool ScreenClient::hasWindow(const QString &title)
{
    const xcb_window_t window = d->find(title);
    if (window == XCB_WINDOW_NONE)
        return false;
    xcb_set_input_focus(d->link, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(d->link);
    return true;
}

bool ScreenClient::closeWindow(const QString &title)
{
    const xcb_window_t window = d->find(title);
    if (window == XCB_WINDOW_NONE)
        return false;
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = d->atom("WM_PROTOCOLS");
    event.data.data32[0] = d->atom("WM_DELETE_WINDOW");
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(d->link, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&event));
    xcb_flush(d->link);
    return true;
}
