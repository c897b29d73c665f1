#include "platform/contrast.h"

#include <algorithm>
#include <cmath>

namespace contrast {

namespace {
double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

QColor mix(const QColor& from, const QColor& to, double share) {
    auto channel = [share](int a, int b) { return int(std::lround(a + (b - a) * share)); };
    return QColor(channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue()),
                  from.alpha());
}
} // namespace

double luminance(const QColor& colour) {
    const QColor rgb = colour.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) + 0.0722 * linear(rgb.blueF());
}

double ratio(const QColor& a, const QColor& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor readable(const QColor& colour, const QColor& background, double minRatio, const QColor& towards) {
    if (ratio(colour, background) >= minRatio)
        return colour;
    // A palette whose own text is too faint on the background gives way to black or white.
    QColor target = towards;
    if (ratio(target, background) < minRatio)
        target = ratio(Qt::black, background) >= ratio(Qt::white, background) ? QColor(Qt::black) : QColor(Qt::white);
    for (int step = 1; step < 10; ++step) {
        const QColor mixed = mix(colour, target, step / 10.0);
        if (ratio(mixed, background) >= minRatio)
            return mixed;
    }
    return target;
}

} // namespace contrast
