#include "alarmset/ui/picture_button.h"

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
    p.drawControl(QStyle::CE_PushButtonBevel, option);
    // The smallest buttons keep a one-pixel rim, the others a little more.
    const int rim = std::min(width(), height()) >= 14 ? 3 : 1;
    QRectF face = QRectF(rect()).adjusted(rim, rim, -rim, -rim);
    if (isDown())
        face.translate(1, 1);
    if (!isEnabled())
        p.setOpacity(0.4);
    m_face(p, face);
}
