#include "alarmset/ui/button_faces.h"

#include "platform/contrast.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace button_faces {

namespace {

const QColor kInk(0x20, 0x20, 0x20);

// Pictures aim a little above the minimum contrast: their edges blend into the background.
constexpr double kGraphicsAim = contrast::kGraphics * 1.2;
constexpr double kTextAim = contrast::kText * 1.2;

// A colour of the picture made readable on the painter's background, mixed towards the painter's pen (the
// palette's text colour) where the background is too close to it.
QColor shown(const QPainter& p, const QColor& colour, double minRatio = kGraphicsAim) {
    return contrast::readable(colour, p.background().color(), minRatio, p.pen().color());
}

// A shape of its own colour, rimmed where that colour alone would fade into the background.
void fillRimmed(QPainter& p, const QPainterPath& path, const QColor& fill) {
    p.fillPath(path, fill);
    if (contrast::ratio(fill, p.background().color()) >= kGraphicsAim)
        return;
    p.save();
    p.setPen(QPen(shown(p, fill), 1.0));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
    p.restore();
}

// The largest square of the rectangle, centred.
QRectF square(const QRectF& r) {
    const qreal side = std::min(r.width(), r.height());
    return QRectF(r.center().x() - side / 2, r.center().y() - side / 2, side, side);
}

void triangle(QPainter& p, QPointF a, QPointF b, QPointF c, const QColor& fill) {
    QPainterPath path;
    path.moveTo(a);
    path.lineTo(b);
    path.lineTo(c);
    path.closeSubpath();
    p.fillPath(path, fill);
}

// One pair of scissors standing in the square: blades up, crossed, rings below.
void scissorsIn(QPainter& p, const QRectF& s) {
    p.save();
    const qreal w = s.width();
    const qreal ringR = w * 0.17;
    const QPointF leftRing(s.left() + w * 0.28, s.bottom() - ringR - w * 0.04);
    const QPointF rightRing(s.right() - w * 0.28, s.bottom() - ringR - w * 0.04);
    const QPointF pivot(s.center().x(), s.top() + w * 0.5);

    const QColor bladeColour = shown(p, QColor(0x70, 0x78, 0x80));
    const QColor ringColour = shown(p, QColor(0xc0, 0x20, 0x20));
    const QColor pivotColour = shown(p, kInk);
    p.setPen(QPen(bladeColour, std::max<qreal>(1.0, w * 0.11), Qt::SolidLine, Qt::RoundCap));
    p.drawLine(leftRing + QPointF(ringR * 0.5, -ringR * 0.8), QPointF(s.right() - w * 0.2, s.top() + w * 0.05));
    p.drawLine(rightRing + QPointF(-ringR * 0.5, -ringR * 0.8), QPointF(s.left() + w * 0.2, s.top() + w * 0.05));

    p.setPen(QPen(ringColour, std::max<qreal>(1.0, w * 0.09)));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(leftRing, ringR, ringR);
    p.drawEllipse(rightRing, ringR, ringR);
    p.setPen(Qt::NoPen);
    p.setBrush(pivotColour);
    p.drawEllipse(pivot, w * 0.05, w * 0.05);
    p.restore();
}

void pencil(QPainter& p, QPointF tip, QPointF end, qreal thickness, const QColor& lead) {
    const QLineF axis(tip, end);
    const QPointF dir = (end - tip) / axis.length();
    const QPointF wood = tip + dir * thickness * 1.6;
    p.setPen(QPen(QColor(0xe8, 0xb0, 0x20), thickness, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(wood, end);
    p.setPen(QPen(QColor(0xd8, 0x70, 0x80), thickness, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(end - dir * thickness * 0.9, end);
    const QPointF normal(-dir.y(), dir.x());
    triangle(p, tip, wood + normal * thickness / 2, wood - normal * thickness / 2, QColor(0xf0, 0xd8, 0xb0));
    p.setPen(Qt::NoPen);
    p.setBrush(lead);
    p.drawEllipse(tip, thickness * 0.18, thickness * 0.18);
}

} // namespace

void arrowUp(QPainter& p, const QRectF& r) {
    const qreal h = std::min(r.height(), r.width() / 2);
    const qreal top = r.center().y() - h / 2;
    triangle(p, QPointF(r.center().x(), top), QPointF(r.center().x() - h, top + h),
             QPointF(r.center().x() + h, top + h), shown(p, kInk));
}

void arrowDown(QPainter& p, const QRectF& r) {
    const qreal h = std::min(r.height(), r.width() / 2);
    const qreal top = r.center().y() - h / 2;
    triangle(p, QPointF(r.center().x() - h, top), QPointF(r.center().x() + h, top), QPointF(r.center().x(), top + h),
             shown(p, kInk));
}

void scissors(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    scissorsIn(p, square(r));
    p.restore();
}

void twoScissors(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF half(r.left(), r.top(), r.width() / 2, r.height());
    scissorsIn(p, square(half));
    scissorsIn(p, square(half.translated(r.width() / 2, 0)));
    p.restore();
}

void floppyDisk(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF s = square(r);
    const qreal w = s.width();
    QPainterPath body;
    body.moveTo(s.topLeft());
    body.lineTo(s.right() - w * 0.18, s.top());
    body.lineTo(s.right(), s.top() + w * 0.18);
    body.lineTo(s.bottomRight());
    body.lineTo(s.bottomLeft());
    body.closeSubpath();
    fillRimmed(p, body, QColor(0x20, 0x40, 0x90));
    p.fillRect(QRectF(s.left() + w * 0.22, s.top(), w * 0.5, w * 0.34), QColor(0xc8, 0xcc, 0xd0));
    p.fillRect(QRectF(s.left() + w * 0.52, s.top() + w * 0.05, w * 0.12, w * 0.24), QColor(0x20, 0x40, 0x90));
    p.fillRect(QRectF(s.left() + w * 0.15, s.top() + w * 0.52, w * 0.7, w * 0.42), Qt::white);
    p.restore();
}

void openFolder(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF s = square(r);
    const qreal w = s.width();
    QPainterPath back;
    back.moveTo(s.left(), s.top() + w * 0.15);
    back.lineTo(s.left() + w * 0.35, s.top() + w * 0.15);
    back.lineTo(s.left() + w * 0.45, s.top() + w * 0.27);
    back.lineTo(s.right() - w * 0.1, s.top() + w * 0.27);
    back.lineTo(s.right() - w * 0.1, s.bottom() - w * 0.08);
    back.lineTo(s.left(), s.bottom() - w * 0.08);
    back.closeSubpath();
    fillRimmed(p, back, QColor(0xc0, 0x90, 0x20));
    QPainterPath front;
    front.moveTo(s.left() + w * 0.18, s.top() + w * 0.45);
    front.lineTo(s.right(), s.top() + w * 0.45);
    front.lineTo(s.right() - w * 0.1, s.bottom() - w * 0.08);
    front.lineTo(s.left(), s.bottom() - w * 0.08);
    front.closeSubpath();
    fillRimmed(p, front, QColor(0xf0, 0xc8, 0x40));
    p.restore();
}

void sheetAndPencil(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF s = square(r);
    const qreal w = s.width();
    const QColor lead = shown(p, kInk);
    const QRectF sheet(s.left() + w * 0.1, s.top() + w * 0.05, w * 0.6, w * 0.85);
    p.setPen(QPen(kInk, std::max<qreal>(1.0, w * 0.04)));
    p.setBrush(Qt::white);
    p.drawRect(sheet);
    p.setPen(QPen(QColor(0x80, 0x80, 0x80), std::max<qreal>(1.0, w * 0.03)));
    for (int line = 1; line <= 4; ++line) {
        const qreal y = sheet.top() + sheet.height() * line / 5.5;
        p.drawLine(QPointF(sheet.left() + w * 0.08, y), QPointF(sheet.right() - w * 0.08, y));
    }
    pencil(p, QPointF(s.left() + w * 0.45, s.bottom() - w * 0.15), QPointF(s.right() - w * 0.02, s.top() + w * 0.28),
           std::max<qreal>(2.0, w * 0.14), lead);
    p.restore();
}

void playTriangle(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const qreal h = r.height();
    const qreal left = r.center().x() - h * 0.45;
    triangle(p, QPointF(left, r.top()), QPointF(left, r.bottom()), QPointF(left + h * 0.9, r.center().y()),
             shown(p, QColor(0x10, 0x70, 0x20)));
    p.restore();
}

void minimiseBar(QPainter& p, const QRectF& r) {
    const qreal h = std::max<qreal>(2.0, r.height() * 0.25);
    p.fillRect(QRectF(r.left() + r.width() * 0.25, r.bottom() - h, r.width() * 0.5, h), shown(p, kInk));
}

void addWithPencil(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF word(r.left(), r.top(), r.width() * 0.62, r.height());
    QFont font = p.font();
    font.setBold(true);
    p.setFont(font);
    const QColor ink = shown(p, kInk, kTextAim);
    const QColor lead = shown(p, kInk);
    p.setPen(ink);
    p.drawText(word, Qt::AlignCenter, QStringLiteral("Add"));
    const QRectF s = square(QRectF(word.right(), r.top(), r.width() - word.width(), r.height()));
    const qreal w = s.width();
    pencil(p, QPointF(s.left() + w * 0.1, s.bottom() - w * 0.1), QPointF(s.right() - w * 0.05, s.top() + w * 0.05),
           std::max<qreal>(2.0, w * 0.22), lead);
    p.restore();
}

void hourglass(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const qreal w = std::min(r.width(), r.height() * 0.73);
    const QRectF g(r.center().x() - w / 2, r.top(), w, r.height());
    const qreal cap = g.height() * 0.1;
    const QColor wood = shown(p, QColor(0x80, 0x50, 0x20));
    p.fillRect(QRectF(g.left(), g.top(), g.width(), cap), wood);
    p.fillRect(QRectF(g.left(), g.bottom() - cap, g.width(), cap), wood);
    const qreal inset = g.width() * 0.12;
    const QPointF neck(g.center().x(), g.center().y());
    QPainterPath glass;
    glass.moveTo(g.left() + inset, g.top() + cap);
    glass.lineTo(g.right() - inset, g.top() + cap);
    glass.lineTo(neck + QPointF(g.width() * 0.06, 0));
    glass.lineTo(g.right() - inset, g.bottom() - cap);
    glass.lineTo(g.left() + inset, g.bottom() - cap);
    glass.lineTo(neck - QPointF(g.width() * 0.06, 0));
    glass.closeSubpath();
    p.fillPath(glass, QColor(0xe0, 0xf0, 0xff));
    const QColor sand(0xe0, 0xb0, 0x50);
    const qreal half = g.height() / 2 - cap;
    triangle(p, QPointF(g.left() + inset * 2, g.top() + cap + half * 0.45),
             QPointF(g.right() - inset * 2, g.top() + cap + half * 0.45), neck, sand);
    triangle(p, QPointF(g.left() + inset, g.bottom() - cap), QPointF(g.right() - inset, g.bottom() - cap),
             QPointF(neck.x(), g.bottom() - cap - half * 0.4), sand);
    p.setPen(QPen(wood, 1));
    p.setBrush(Qt::NoBrush);
    p.drawPath(glass);
    p.restore();
}

void ringingBell(QPainter& p, const QRectF& r) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF s = square(r);
    const qreal w = s.width();
    const QColor waves = shown(p, kInk);
    QPainterPath bell;
    bell.moveTo(s.center().x() - w * 0.06, s.top() + w * 0.12);
    bell.cubicTo(s.left() + w * 0.2, s.top() + w * 0.15, s.left() + w * 0.28, s.top() + w * 0.55, s.left() + w * 0.15,
                 s.top() + w * 0.78);
    bell.lineTo(s.right() - w * 0.15, s.top() + w * 0.78);
    bell.cubicTo(s.right() - w * 0.28, s.top() + w * 0.55, s.right() - w * 0.2, s.top() + w * 0.15,
                 s.center().x() + w * 0.06, s.top() + w * 0.12);
    bell.closeSubpath();
    p.fillPath(bell, QColor(0xe0, 0xa8, 0x20));
    p.setPen(QPen(QColor(0x90, 0x60, 0x10), std::max<qreal>(1.0, w * 0.03)));
    p.setBrush(Qt::NoBrush);
    p.drawPath(bell);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x90, 0x60, 0x10));
    p.drawEllipse(QPointF(s.center().x(), s.top() + w * 0.86), w * 0.08, w * 0.08);
    p.drawEllipse(QPointF(s.center().x(), s.top() + w * 0.1), w * 0.05, w * 0.05);

    // Sound waves on either side, as wide as the rectangle allows.
    p.setPen(QPen(waves, std::max<qreal>(1.0, w * 0.04), Qt::SolidLine, Qt::RoundCap));
    const qreal room = (r.width() - w) / 2;
    for (int i = 1; i <= 3 && room > w * 0.15 * i; ++i) {
        const qreal radius = w * 0.15 * i + w * 0.35;
        const QRectF arc(s.center().x() - radius, s.center().y() - radius, radius * 2, radius * 2);
        p.drawArc(arc, -30 * 16, 60 * 16);
        p.drawArc(arc, 150 * 16, 60 * 16);
    }
    p.restore();
}

} // namespace button_faces
