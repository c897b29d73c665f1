#include "clock/clock_picture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace clock_picture {

namespace {
// The window's outline: x from 1 to 155, y from 1 to 21. The face fills it whole, so no row of the window's
// plain back shows under the round ends.
constexpr int kLeft = 1;
constexpr int kTop = 1;
constexpr int kWidth = 155;
constexpr int kHeight = 21;

QPainterPath pillPath(double inset) {
    QPainterPath path;
    const QRectF box(kLeft + inset, kTop + inset, kWidth - 2 * inset, kHeight - 2 * inset);
    const double radius = box.height() / 2;
    path.addRoundedRect(box, radius, radius);
    return path;
}
} // namespace

QImage pill() {
    QImage image(kLeft + kWidth, kTop + kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);

    p.fillPath(pillPath(0), backColour());

    // Outer rim: lit from above, in shade below.
    QLinearGradient outer(0, kTop, 0, kTop + kHeight);
    outer.setColorAt(0.0, rimLight());
    outer.setColorAt(0.45, backColour());
    outer.setColorAt(1.0, rimShadow());
    p.setPen(QPen(QBrush(outer), 1.2));
    p.drawPath(pillPath(0.6));

    // Inner rim: the groove inside, in shade along the top and catching the light along the bottom.
    QLinearGradient inner(0, kTop, 0, kTop + kHeight);
    inner.setColorAt(0.0, rimShadow());
    inner.setColorAt(0.5, backColour());
    inner.setColorAt(1.0, rimLight());
    p.setPen(QPen(QBrush(inner), 1.0));
    p.drawPath(pillPath(2.0));
    return image;
}

} // namespace clock_picture
