#include "clock/ui/clock_text_label.h"

#include "platform/ui/fitted_font.h"

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

QFont ClockTextLabel::shownFont() const {
    return fittedFont(font(), m_text, width());
}

void ClockTextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(shownFont());
    style()->drawItemText(&painter, rect(), int(m_alignment), palette(), isEnabled(), m_text, QPalette::WindowText);
}
