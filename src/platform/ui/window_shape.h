#pragma once

class QRegion;
class QWidget;

// Cuts a window to an outline given in device pixels.
namespace window_shape {

// On X11 the outline goes to the window as it stands, pixel for pixel, at any scale factor. Elsewhere, and
// before the window exists, it becomes the widget's mask in logical pixels, which at a fractional scale
// factor can only be as fine as one logical pixel.
void setWindowRegion(QWidget& window, const QRegion& devicePixels);

// The logical-pixel region that covers every device pixel of the given one.
QRegion toLogicalRegion(const QRegion& devicePixels, double ratio);

} // namespace window_shape
