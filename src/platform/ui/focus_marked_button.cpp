#include "platform/ui/focus_marked_button.h"

#include <QStyleOptionFocusRect>
#include <QStylePainter>

FocusMarkedButton::FocusMarkedButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {}

void FocusMarkedButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QPen pen(palette().color(QPalette::ButtonText), 1, Qt::DotLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(3, 3, -4, -4));
}
