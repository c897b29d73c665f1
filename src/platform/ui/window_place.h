#pragma once

class QPoint;
class QSize;
class QWidget;

// Top-level windows placed by their outer corner, frame included, in device pixels. Through Qt's logical pixels
// a window at a fractional scale factor lands a pixel off now and then.
namespace window_place {

// A hidden window gets there when it is shown.
void move(QWidget& window, const QPoint& device);
// Places a window of this client size in the middle of the desktop less its panels.
void centre(QWidget& window, const QSize& device);
QPoint topLeft(const QWidget& window);

// Keeps the window where it was left across a hide and a show. A window the program never placed itself is placed
// by the window manager at every showing, so one dragged away and hidden would come back at its first place.
void keep(QWidget& window);

} // namespace window_place
