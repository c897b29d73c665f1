#include "clock/ui/clock_text_label.h"

#include <QPainter>
#include <QStyle>

ClockTextLabel::ClockTextLabel(QWidget* parent) : QWidget(parent) {}

void ClockTextLabel::setText(const QString& text) {
    if (text == m_text)
        return;
    m_text = text;
    repaint();
}

void ClockTextLabel::setAlignment(Qt::Alignment alignment) {
    m_alignment = alignment;
    update();
}

void ClockTextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), int(m_alignment), palette(), isEnabled(), m_text, QPalette::WindowText);
}
