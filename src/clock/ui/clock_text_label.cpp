#include "clock/ui/clock_text_label.h"

#include "clock/clock_picture.h"
#include "platform/contrast.h"
#include "platform/ui/fitted_font.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QStyle>

namespace {

// The painted text, read out as a label's: screen readers find the time or date the face shows.
class ClockTextAccessible : public QAccessibleWidget {
public:
    explicit ClockTextAccessible(ClockTextLabel* label) : QAccessibleWidget(label, QAccessible::StaticText) {}
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name)
            return static_cast<const ClockTextLabel*>(widget())->text();
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* clockTextInterface(const QString& className, QObject* object) {
    if (className == QLatin1String(ClockTextLabel::staticMetaObject.className()))
        if (auto* label = qobject_cast<ClockTextLabel*>(object))
            return new ClockTextAccessible(label);
    return nullptr;
}

} // namespace

ClockTextLabel::ClockTextLabel(QWidget* parent) : QWidget(parent) {
    static bool installed = false;
    if (!installed)
        QAccessible::installFactory(clockTextInterface);
    installed = true;
}

void ClockTextLabel::setText(const QString& text) {
    if (text == m_text)
        return;
    m_text = text;
    repaint();
    // Only a listening screen reader is told; otherwise the tick stays as cheap as before.
    if (QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    }
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
