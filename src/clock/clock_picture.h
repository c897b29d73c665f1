#pragma once

#include <QColor>
#include <QImage>

// The clock's back colour and the pill picture laid at the window's top left corner.
namespace clock_picture {

inline QColor backColour() {
    return QColor(200, 216, 192);
}
inline QColor rimLight() {
    return QColor(246, 250, 244);
}
inline QColor rimShadow() {
    return QColor(115, 132, 115);
}

// The pale green pill filling the window's outline (x 1 to 155, y 1 to 21), with a bevelled rim, light along the
// upper curves and grey-green along the inner and lower ones; outside the outline it is transparent.
QImage pill();

} // namespace clock_picture
