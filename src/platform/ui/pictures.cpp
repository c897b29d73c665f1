#include "platform/ui/pictures.h"

#include <QPainter>
#include <QPainterPath>

namespace pictures {

namespace {
QPixmap blank(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}
} // namespace

QPixmap warning(int size) {
    QPixmap pixmap = blank(size);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const double s = size;
    QPainterPath triangle;
    triangle.moveTo(s / 2, s * 0.06);
    triangle.lineTo(s * 0.96, s * 0.92);
    triangle.lineTo(s * 0.04, s * 0.92);
    triangle.closeSubpath();
    p.setPen(QPen(QColor(0x8a, 0x5a, 0x00), s * 0.06, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(QColor(0xff, 0xd2, 0x3f));
    p.drawPath(triangle);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    p.drawRoundedRect(QRectF(s * 0.45, s * 0.32, s * 0.1, s * 0.34), s * 0.04, s * 0.04);
    p.drawEllipse(QRectF(s * 0.44, s * 0.72, s * 0.12, s * 0.12));
    return pixmap;
}

QPixmap error(int size) {
    QPixmap pixmap = blank(size);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const double s = size;
    p.setPen(QPen(QColor(0x7a, 0x10, 0x10), s * 0.05));
    p.setBrush(QColor(0xd6, 0x28, 0x28));
    p.drawEllipse(QRectF(s * 0.05, s * 0.05, s * 0.9, s * 0.9));
    p.setPen(QPen(Qt::white, s * 0.12, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(s * 0.33, s * 0.33), QPointF(s * 0.67, s * 0.67));
    p.drawLine(QPointF(s * 0.67, s * 0.33), QPointF(s * 0.33, s * 0.67));
    return pixmap;
}

QPixmap clock(int size, bool enabled) {
    QPixmap pixmap = blank(size);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const double s = size;
    const QColor rim = enabled ? QColor(0x7a, 0x5c, 0x12) : QColor(0x70, 0x70, 0x70);
    // Two bells on top, a round face with hands.
    p.setPen(Qt::NoPen);
    p.setBrush(rim);
    p.drawEllipse(QRectF(s * 0.04, s * 0.04, s * 0.3, s * 0.3));
    p.drawEllipse(QRectF(s * 0.66, s * 0.04, s * 0.3, s * 0.3));
    p.setPen(QPen(rim, s * 0.08));
    p.setBrush(enabled ? QColor(0xfd, 0xf6, 0xd8) : QColor(0xe0, 0xe0, 0xe0));
    p.drawEllipse(QRectF(s * 0.1, s * 0.14, s * 0.8, s * 0.8));
    p.setPen(QPen(QColor(0x1d, 0x35, 0x57), s * 0.08, Qt::SolidLine, Qt::RoundCap));
    const QPointF centre(s * 0.5, s * 0.54);
    p.drawLine(centre, QPointF(s * 0.5, s * 0.3));
    p.drawLine(centre, QPointF(s * 0.68, s * 0.64));
    if (!enabled) {
        p.setPen(QPen(QColor(0xc1, 0x12, 0x1f), s * 0.12, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(s * 0.12, s * 0.9), QPointF(s * 0.88, s * 0.14));
    }
    return pixmap;
}

} // namespace pictures
