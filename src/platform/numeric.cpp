#include "platform/numeric.h"

#include <cmath>
#include <limits>

long leadingDigitsValue(const QString& text) {
    long value = 0;
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            break;
        if (value > (std::numeric_limits<long>::max() - 9) / 10)
            return std::numeric_limits<long>::max();
        value = value * 10 + (c.unicode() - '0');
    }
    return value;
}

long roundHalfEven(double value) {
    return static_cast<long>(std::nearbyint(value));
}

QString numberForMessage(long value) {
    return value < 0 ? QString::number(value) : QLatin1Char(' ') + QString::number(value);
}
