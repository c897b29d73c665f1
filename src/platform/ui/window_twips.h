#pragma once

class QFont;
class QPointF;
class QWidget;

// Window geometry in twips, for widgets laid out from twips figures.
namespace window_twips {

// Twips per device pixel of the screen the widget is on (15 at 96 dpi, 12 at 120, 10 at 144).
double twipsPerPixel(const QWidget* widget);
// A twips length in logical pixels of that screen.
int px(const QWidget* widget, double twipValue);
// Places a child at a twips rectangle of its parent.
void place(QWidget* child, double left, double top, double width, double height);
// Gives a window a client area of these twips and centres it on its screen.
void sizeAndCentre(QWidget* window, double width, double height);
// A top-level window's outer corner, frame included, at twips of its screen; a hidden one gets there when shown.
void moveTo(QWidget* window, double left, double top);
// Where that corner stands: x left, y top.
QPointF placeOf(const QWidget* window);
// The face our layouts are measured for: 8 points with Arial's widths. Wider desktop faces cut captions.
QFont designFont(const QFont& base);
// Makes a window stay in front of the others and brings it forward.
void makeTopmost(QWidget* window);

} // namespace window_twips
