#include "platform/ui/window_shape.h"

#include <QGuiApplication>
#include <QRegion>
#include <QWidget>
#include <QWindow>

#include <cmath>
#include <vector>

#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace window_shape {

namespace {

bool setX11Shape(QWidget& window, const QRegion& devicePixels) {
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !window.windowHandle())
        return false;
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return false;
    // Qt's own mask would be laid over ours at its coarser grain.
    if (!window.mask().isEmpty())
        window.clearMask();
    std::vector<xcb_rectangle_t> rects;
    rects.reserve(static_cast<size_t>(devicePixels.rectCount()));
    for (const QRect& r : devicePixels)
        rects.push_back({static_cast<int16_t>(r.x()), static_cast<int16_t>(r.y()), static_cast<uint16_t>(r.width()),
                         static_cast<uint16_t>(r.height())});
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_void_cookie_t cookie =
        xcb_shape_rectangles_checked(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                                     id, 0, 0, static_cast<uint32_t>(rects.size()), rects.data());
    // A server without the shape extension refuses the request: the mask is the way left.
    if (xcb_generic_error_t* error = xcb_request_check(connection, cookie)) {
        free(error);
        return false;
    }
    return true;
}

} // namespace

QRegion toLogicalRegion(const QRegion& devicePixels, double ratio) {
    if (ratio == 1.0)
        return devicePixels;
    QRegion logical;
    for (const QRect& r : devicePixels) {
        const QPoint topLeft(static_cast<int>(std::floor(r.left() / ratio)),
                             static_cast<int>(std::floor(r.top() / ratio)));
        const QPoint end(static_cast<int>(std::ceil((r.right() + 1) / ratio)),
                         static_cast<int>(std::ceil((r.bottom() + 1) / ratio)));
        logical += QRect(topLeft, end - QPoint(1, 1));
    }
    return logical;
}

void setWindowRegion(QWidget& window, const QRegion& devicePixels) {
    if (setX11Shape(window, devicePixels))
        return;
    window.setMask(toLogicalRegion(devicePixels, window.devicePixelRatioF()));
}

} // namespace window_shape
