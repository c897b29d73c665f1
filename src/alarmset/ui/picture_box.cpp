#include "alarmset/ui/picture_box.h"

#include <QPainter>

PictureBox::PictureBox(Face face, QWidget* parent) : QWidget(parent), m_face(std::move(face)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setPen(palette().color(QPalette::WindowText));
    p.setBackground(palette().window());
    m_face(p, QRectF(rect()));
}
