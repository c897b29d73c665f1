#include "clock/ui/clock_text_label.h"

#include "clock/clock_picture.h"
#include "platform/contrast.h"
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
    // The text stands on the pill's fixed pale green: a dark palette's light text gives way to black.
    QPalette colours = palette();
    if (contrast::ratio(colours.color(QPalette::WindowText), clock_picture::backColour()) < contrast::kText)
        colours.setColor(QPalette::WindowText, Qt::black);
    style()->drawItemText(&painter, rect(), int(m_alignment), colours, isEnabled(), m_text, QPalette::WindowText);
}
