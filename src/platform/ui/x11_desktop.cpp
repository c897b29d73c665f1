#include "platform/ui/x11_desktop.h"

#include <QGuiApplication>
#include <QWindow>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace x11_desktop {

namespace {

xcb_connection_t* connection() {
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return nullptr;
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_screen_t* rootScreen(xcb_connection_t* c) {
    return xcb_setup_roots_iterator(xcb_get_setup(c)).data;
}

// Replies are the caller's to free.
template <typename T> using Reply = std::unique_ptr<T, decltype(&std::free)>;
template <typename T> Reply<T> reply(T* r) {
    return Reply<T>(r, &std::free);
}

// A created window only: asking a QWindow for its id would create it.
std::optional<xcb_window_t> windowId(const QWindow& window) {
    if (!window.handle())
        return std::nullopt;
    return static_cast<xcb_window_t>(window.winId());
}

xcb_atom_t atom(xcb_connection_t* c, const char* name) {
    const auto r =
        reply(xcb_intern_atom_reply(c, xcb_intern_atom(c, 1, static_cast<uint16_t>(strlen(name)), name), nullptr));
    return r ? r->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

// Up to `count` CARDINALs of a window property.
std::vector<uint32_t> cardinals(xcb_connection_t* c, xcb_window_t window, const char* name, uint32_t count) {
    const xcb_atom_t property = atom(c, name);
    if (property == XCB_ATOM_NONE)
        return {};
    const auto r = reply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, window, property, XCB_ATOM_CARDINAL, 0, count), nullptr));
    if (!r || r->format != 32 || r->type != XCB_ATOM_CARDINAL)
        return {};
    const auto* values = static_cast<const uint32_t*>(xcb_get_property_value(r.get()));
    const int length = xcb_get_property_value_length(r.get()) / 4;
    return std::vector<uint32_t>(values, values + length);
}

} // namespace

bool available() {
    return connection() != nullptr;
}

bool moveWindow(const QWindow& window, const QPoint& place) {
    xcb_connection_t* c = connection();
    const std::optional<xcb_window_t> id = windowId(window);
    if (!c || !id)
        return false;
    const uint32_t values[] = {static_cast<uint32_t>(place.x()), static_cast<uint32_t>(place.y())};
    const xcb_void_cookie_t cookie =
        xcb_configure_window_checked(c, *id, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values);
    if (xcb_generic_error_t* error = xcb_request_check(c, cookie)) {
        free(error);
        return false;
    }
    return true;
}

std::optional<QPoint> windowPlace(const QWindow& window) {
    xcb_connection_t* c = connection();
    const std::optional<xcb_window_t> id = windowId(window);
    if (!c || !id)
        return std::nullopt;
    const auto r = reply(
        xcb_translate_coordinates_reply(c, xcb_translate_coordinates(c, *id, rootScreen(c)->root, 0, 0), nullptr));
    if (!r)
        return std::nullopt;
    return QPoint(r->dst_x, r->dst_y);
}

bool moveFrame(const QWindow& window, const QPoint& corner, bool frameKnown) {
    xcb_connection_t* c = connection();
    const std::optional<xcb_window_t> id = windowId(window);
    if (!c || !id)
        return false;
    // WM_NORMAL_HINTS: 18 figures, the flags first and the gravity last. Without one the reference point is the
    // frame's corner; with static gravity it is the window's own.
    constexpr uint32_t kGravityGiven = 1u << 9;
    const std::vector<uint32_t> hints = [&] {
        const auto r = reply(xcb_get_property_reply(
            c, xcb_get_property(c, 0, *id, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 0, 18), nullptr));
        if (!r || r->format != 32)
            return std::vector<uint32_t>();
        const auto* values = static_cast<const uint32_t*>(xcb_get_property_value(r.get()));
        return std::vector<uint32_t>(values, values + xcb_get_property_value_length(r.get()) / 4);
    }();
    const bool staticGravity = hints.size() == 18 && (hints[0] & kGravityGiven) && hints[17] == XCB_GRAVITY_STATIC;
    QPoint place = corner;
    if (staticGravity) {
        const std::optional<QPoint> frame = frameCorner(window);
        const std::optional<QPoint> client = frame ? windowPlace(window) : std::nullopt;
        if (!client && frameKnown)
            return false;
        if (client)
            place += *client - *frame;
    }
    return moveWindow(window, place);
}

std::optional<QPoint> frameCorner(const QWindow& window) {
    xcb_connection_t* c = connection();
    const std::optional<xcb_window_t> id = windowId(window);
    if (!c || !id)
        return std::nullopt;
    // The frame is the window's ancestor that is a child of the root; a window still a child of the root itself
    // has not been framed yet. A frame's place is its outer corner, border included.
    const xcb_window_t root = rootScreen(c)->root;
    xcb_window_t frame = *id;
    for (int depth = 0; depth < 8; ++depth) {
        const auto tree = reply(xcb_query_tree_reply(c, xcb_query_tree(c, frame), nullptr));
        if (!tree)
            return std::nullopt;
        if (tree->parent == root) {
            if (frame == *id)
                return std::nullopt;
            const auto geometry = reply(xcb_get_geometry_reply(c, xcb_get_geometry(c, frame), nullptr));
            if (!geometry)
                return std::nullopt;
            return QPoint(geometry->x, geometry->y);
        }
        frame = tree->parent;
    }
    return std::nullopt;
}

std::optional<QPoint> pointer() {
    xcb_connection_t* c = connection();
    if (!c)
        return std::nullopt;
    const auto r = reply(xcb_query_pointer_reply(c, xcb_query_pointer(c, rootScreen(c)->root), nullptr));
    if (!r || !r->same_screen)
        return std::nullopt;
    return QPoint(r->root_x, r->root_y);
}

bool warpPointer(const QPoint& place) {
    xcb_connection_t* c = connection();
    if (!c)
        return false;
    const xcb_void_cookie_t cookie = xcb_warp_pointer_checked(
        c, XCB_NONE, rootScreen(c)->root, 0, 0, 0, 0, static_cast<int16_t>(place.x()), static_cast<int16_t>(place.y()));
    if (xcb_generic_error_t* error = xcb_request_check(c, cookie)) {
        free(error);
        return false;
    }
    return true;
}

std::optional<QRect> screenGeometry() {
    xcb_connection_t* c = connection();
    // With several monitors on one X screen the root window spans them all.
    if (!c || QGuiApplication::screens().size() != 1)
        return std::nullopt;
    const xcb_screen_t* screen = rootScreen(c);
    return QRect(0, 0, screen->width_in_pixels, screen->height_in_pixels);
}

std::optional<QRect> workArea() {
    xcb_connection_t* c = connection();
    const std::optional<QRect> screen = screenGeometry();
    if (!c || !screen)
        return std::nullopt;
    const xcb_window_t root = rootScreen(c)->root;
    const std::vector<uint32_t> current = cardinals(c, root, "_NET_CURRENT_DESKTOP", 1);
    // A desktop number past any sane count is not trusted; the first desktop's area is what Qt itself reads.
    const uint32_t desktop = current.empty() || current[0] > 255 ? 0 : current[0];
    // Four figures a desktop: x, y, width, height.
    const std::vector<uint32_t> areas = cardinals(c, root, "_NET_WORKAREA", 4 * (desktop + 1));
    const size_t first = areas.size() >= 4 * (desktop + 1) ? 4 * desktop : 0;
    if (areas.size() < first + 4)
        return std::nullopt;
    const QRect area(static_cast<int>(areas[first]), static_cast<int>(areas[first + 1]),
                     static_cast<int>(areas[first + 2]), static_cast<int>(areas[first + 3]));
    const QRect within = area & *screen;
    if (within.isEmpty())
        return std::nullopt;
    return within;
}

} // namespace x11_desktop
