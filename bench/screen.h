#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace quillon {

/// The display's screen, as another program sees it. Nothing but the program that is measured shows windows
/// there.
class Screen
{
public:
    Screen() : m_connection(xcb_connect(nullptr, nullptr), xcb_disconnect)
    {
        if (!isThere())
            return;
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.get(), m_root, XCB_CW_EVENT_MASK, &events);
        xcb_flush(m_connection.get());
    }

    /// Whether there is a display.
    [[nodiscard]] bool isThere() const { return xcb_connection_has_error(m_connection.get()) == 0; }

    /// Waits until a window shows.
    [[nodiscard]] xcb_window_t waitForWindow()
    {
        while (Reply<xcb_generic_event_t> event{xcb_wait_for_event(m_connection.get()), std::free}) {
            if ((event->response_type & 0x7f) == XCB_MAP_NOTIFY) {
                const auto *map = reinterpret_cast<const xcb_map_notify_event_t *>(event.get());
                if (map->override_redirect == 0)
                    return map->window;
            }
        }
        return XCB_NONE;
    }

    /// Whether something is drawn in the middle of @p window: it has more than one colour there.
    [[nodiscard]] bool isDrawn(xcb_window_t window)
    {
        xcb_connection_t *const to = m_connection.get();
        const Reply<xcb_get_geometry_reply_t> place{
            xcb_get_geometry_reply(to, xcb_get_geometry(to, window), nullptr), std::free};
        if (!place)
            return false;
        const auto width = std::uint16_t(place->width / 2);
        const auto height = std::uint16_t(place->height / 4);
        const Reply<xcb_get_image_reply_t> image{
            xcb_get_image_reply(to,
                                xcb_get_image(to, XCB_IMAGE_FORMAT_Z_PIXMAP, window, std::int16_t(width / 2),
                                              std::int16_t(height), width, height, ~0U),
                                nullptr),
            std::free};
        if (!image)
            return false;
        const std::uint8_t *data = xcb_get_image_data(image.get());
        const int length = xcb_get_image_data_length(image.get());
        return !std::equal(data + 4, data + length, data);
    }

    /// Forgets what has happened so far.
    void forget()
    {
        while (Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get()), std::free}) {
        }
    }

private:
    template<typename T>
    using Reply = std::unique_ptr<T, decltype(&std::free)>;

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    xcb_window_t m_root = XCB_NONE;
};

} // namespace quillon
