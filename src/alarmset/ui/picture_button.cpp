#include "alarmset/ui/picture_button.h"

#include "platform/contrast.h"

#include <QImage>
#include <QStyleOptionButton>
#include <QStylePainter>

PictureButton::PictureButton(Face face, const QString& accessibleName, QWidget* parent)
    : QAbstractButton(parent), m_face(std::move(face)) {
    setAccessibleName(accessibleName);
    setToolTip(accessibleName);
    setFocusPolicy(Qt::TabFocus);
}

QSize PictureButton::sizeHint() const {
    return QSize(24, 24);
}

void PictureButton::paintEvent(QPaintEvent*) {
    QStylePainter p(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    // The bevel is drawn aside first, so the picture knows the colours it stands on: styles shade a button well
    // away from the palette's own button colour.
    const qreal ratio = devicePixelRatioF();
    QImage bevel(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    bevel.setDevicePixelRatio(ratio);
    bevel.fill(Qt::transparent);
    {
        QPainter bevelPainter(&bevel);
        style()->drawControl(QStyle::CE_PushButtonBevel, &option, &bevelPainter, this);
    }
    p.drawImage(0, 0, bevel);
    // The smallest buttons keep a one-pixel rim, the others a little more.
    const int rim = std::min(width(), height()) >= 14 ? 3 : 1;
    QRectF face = QRectF(rect()).adjusted(rim, rim, -rim, -rim);
    if (isDown())
        face.translate(1, 1);
    if (!isEnabled())
        p.setOpacity(0.4);
    const QColor text = palette().color(QPalette::ButtonText);
    // Of the shades behind the picture, the one nearest the text colour is the hardest to stand out from.
    QColor background = palette().color(QPalette::Button);
    for (qreal y : {face.top(), face.center().y(), face.bottom() - 1}) {
        const QColor shade = bevel.pixelColor(QPointF(face.center().x(), y).toPoint() * ratio);
        if (shade.alpha() == 255 && contrast::ratio(shade, text) < contrast::ratio(background, text))
            background = shade;
    }
    p.setPen(text);
    p.setBackground(background);
    m_face(p, face);
}
