#include "platform/ui/fitted_font.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>

namespace {
constexpr double kSmallest = 6.0;

double widestLine(const QFont& font, const QString& text) {
    const QFontMetricsF fm(font);
    double widest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        widest = qMax(widest, fm.horizontalAdvance(line));
    return widest;
}
} // namespace

QFont fittedFont(const QFont& font, const QString& text, int width) {
    QFont fitted = font;
    double size = font.pointSizeF();
    // A face given in pixels, or a room of nothing, is left as it is.
    if (size <= 0 || width <= 0)
        return fitted;
    while (widestLine(fitted, text) > width && size - 0.25 >= kSmallest) {
        size -= 0.25;
        fitted.setPointSizeF(size);
    }
    return fitted;
}
