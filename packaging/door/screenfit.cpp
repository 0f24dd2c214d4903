#include "packaging/door/screenfit.h"

#include <poll.h>
#include <xcb/randr.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr double kSmallest = 0.3;
constexpr std::array<double, 4> kSteps = {3, 2, 1.5, 1.25};
// A window manager answers within some milliseconds; one that never does costs the start no more than this.
constexpr std::chrono::milliseconds kFrameWait{250};

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> taken(T *reply)
{
    return Reply<T>(reply, &std::free);
}

struct Area
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

Area meet(const Area &one, const Area &other)
{
    const int left = std::max(one.left, other.left);
    const int top = std::max(one.top, other.top);
    return {left, top, std::min(one.left + one.width, other.left + other.width) - left,
            std::min(one.top + one.height, other.top + other.height) - top};
}

class Display
{
public:
    explicit Display(xcb_connection_t *connection, const xcb_screen_t &screen)
        : connection_(connection)
        , screen_(screen)
    {
    }

    Room room() const
    {
        Area area = monitor();
        // Where there are several desktops the property has four numbers for each; their bars are the same.
        const std::vector<uint32_t> work = numbers(screen_.root, "_NET_WORKAREA", XCB_ATOM_CARDINAL, 4);
        if (work.size() == 4) {
            const Area free = meet(area,
                                   {static_cast<int>(work[0]), static_cast<int>(work[1]),
                                    static_cast<int>(work[2]), static_cast<int>(work[3])});
            if (free.width > 0 && free.height > 0)
                area = free;
        }
        const Room frame = frameOfWindows();
        return {area.width - frame.width, area.height - frame.height, hasExtension("GLX")};
    }

private:
    xcb_atom_t atom(const std::string &name) const
    {
        const auto reply = taken(xcb_intern_atom_reply(
            connection_, xcb_intern_atom(connection_, 0, static_cast<uint16_t>(name.size()), name.c_str()),
            nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    bool hasExtension(const std::string &name) const
    {
        const auto reply = taken(xcb_query_extension_reply(
            connection_, xcb_query_extension(connection_, static_cast<uint16_t>(name.size()), name.c_str()),
            nullptr));
        return reply && reply->present;
    }

    std::vector<uint32_t> numbers(xcb_window_t window, const char *name, xcb_atom_t type,
                                  uint32_t count) const
    {
        const auto reply = taken(xcb_get_property_reply(
            connection_, xcb_get_property(connection_, 0, window, atom(name), type, 0, count), nullptr));
        if (!reply || reply->format != 32)
            return {};
        const auto *first = static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
        return {first, first + reply->value_len};
    }

    // The primary monitor, the first where none is, the whole screen where the server knows no monitors.
    Area monitor() const
    {
        const Area whole{0, 0, screen_.width_in_pixels, screen_.height_in_pixels};
        if (!xcb_get_extension_data(connection_, &xcb_randr_id)->present)
            return whole;
        const auto version = taken(
            xcb_randr_query_version_reply(connection_, xcb_randr_query_version(connection_, 1, 5), nullptr));
        if (!version || version->major_version < 1 || version->minor_version < 5)
            return whole;
        const auto reply = taken(xcb_randr_get_monitors_reply(
            connection_, xcb_randr_get_monitors(connection_, screen_.root, 1), nullptr));
        if (!reply)
            return whole;
        Area chosen = whole;
        bool first = true;
        for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
             xcb_randr_monitor_info_next(&it)) {
            if (!first && !it.data->primary)
                continue;
            chosen = {it.data->x, it.data->y, it.data->width, it.data->height};
            first = false;
        }
        return chosen.width > 0 && chosen.height > 0 ? chosen : whole;
    }

    // What the window manager puts around a window: it tells, when asked, before there is a window to be seen.
    Room frameOfWindows() const
    {
        if (numbers(screen_.root, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, 1).empty())
            return {};
        const xcb_window_t window = xcb_generate_id(connection_);
        const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen_.root, 0, 0, 100, 100, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_.root_visual, XCB_CW_EVENT_MASK, &events);
        xcb_client_message_event_t question = {};
        question.response_type = XCB_CLIENT_MESSAGE;
        question.format = 32;
        question.window = window;
        question.type = atom("_NET_REQUEST_FRAME_EXTENTS");
        xcb_send_event(connection_, 0, screen_.root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(&question));
        xcb_flush(connection_);
        const auto end = std::chrono::steady_clock::now() + kFrameWait;
        while (std::chrono::steady_clock::now() < end) {
            const std::vector<uint32_t> sides = numbers(window, "_NET_FRAME_EXTENTS", XCB_ATOM_CARDINAL, 4);
            if (sides.size() == 4)
                return {static_cast<int>(sides[0] + sides[1]), static_cast<int>(sides[2] + sides[3]), false};
            constexpr int kLookAgainMs = 5;
            poll(nullptr, 0, kLookAgainMs);
        }
        return {};
    }

    xcb_connection_t *connection_;
    const xcb_screen_t &screen_;
};

} // namespace

std::string findRoom(Room &room)
{
    int number = 0;
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, &number), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get())) {
        const char *name = std::getenv("DISPLAY");
        return std::string("The display ") + (name ? name : "") + " does not answer.";
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    for (; number > 0 && screens.rem > 1; --number)
        xcb_screen_next(&screens);
    if (screens.rem < 1)
        return "The display has no screen.";
    room = Display(connection.get(), *screens.data).room();
    return {};
}

double factorFor(Room room, Room window)
{
    const double fit = std::min(static_cast<double>(room.width) / window.width,
                                static_cast<double>(room.height) / window.height);
    if (fit < 1)
        return std::max(kSmallest, std::floor(fit * 100) / 100);
    for (const double step : kSteps) {
        if (fit >= step)
            return step;
    }
    return 1;
}
