#pragma once

#include <QPoint>
#include <QRect>

#include <optional>

class QWindow;

// The X server's own figures in device pixels, where Qt hands them out in its logical pixels, which at a
// fractional scale factor are a pixel off now and then. Away from X11 each call gives nothing, or false, and the
// caller goes through Qt.
namespace x11_desktop {

bool available();

// Asks for the window's top left corner at this place; the window manager may still put it elsewhere.
bool moveWindow(const QWindow& window, const QPoint& place);
// Where the window's top left corner stands on the screen.
std::optional<QPoint> windowPlace(const QWindow& window);
// Asks for the outer corner of the window's frame at this place, whichever reference point the window's size hints
// give the manager. False, with frameKnown, while the manager has not yet framed a window whose place depends on it.
bool moveFrame(const QWindow& window, const QPoint& corner, bool frameKnown = false);
// The outer corner of the window manager's frame around the window; nothing while the window is not framed.
std::optional<QPoint> frameCorner(const QWindow& window);

std::optional<QPoint> pointer();
bool warpPointer(const QPoint& place);

// The whole screen, when it is the only one.
std::optional<QRect> screenGeometry();
// The desktop less the panels: _NET_WORKAREA of the current desktop, within the screen.
std::optional<QRect> workArea();

} // namespace x11_desktop
