#include "settings/ui/caption_frame.h"

#include <QPainter>

CaptionFrame::CaptionFrame(const QString& caption, QWidget* parent) : QWidget(parent), m_caption(caption) {
    setAccessibleName(caption);
}

void CaptionFrame::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QFontMetrics fm = fontMetrics();
    const int lineY = m_caption.isEmpty() ? 0 : fm.height() / 2;
    // An etched line: dark, with a light line inside it.
    const QRect outer(0, lineY, width() - 2, height() - lineY - 2);
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(outer);
    p.setPen(palette().color(QPalette::Light));
    p.drawRect(outer.translated(1, 1));
    if (m_caption.isEmpty())
        return;
    const QRect text(8, 0, fm.horizontalAdvance(m_caption) + 4, fm.height());
    p.fillRect(text, palette().color(QPalette::Window));
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(text, Qt::AlignCenter, m_caption);
}
