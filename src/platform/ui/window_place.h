#pragma once

#include <optional>

class QPoint;
class QPointF;
class QWidget;

// Top-level windows placed by their outer corner, frame included, in device pixels. Through Qt's logical pixels
// a window at a fractional scale factor lands a pixel off now and then.
namespace window_place {

// A hidden window gets there when it is shown.
void move(QWidget& window, const QPoint& device);
QPoint topLeft(const QWidget& window);
// Nothing where only Qt's logical place is known.
std::optional<QPoint> nativeTopLeft(const QWidget& window);

// The same in twips of the window's screen: x left, y top.
void moveTwips(QWidget& window, double left, double top);
QPointF topLeftTwips(const QWidget& window);

} // namespace window_place
