#include "clock/clock_text.h"

namespace {
QString twoDigits(int value) {
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}
} // namespace

QString clockTimeText(const QTime& time, bool hour24, bool withSeconds) {
    int hour = time.hour();
    if (!hour24) {
        hour %= 12;
        if (hour == 0)
            hour = 12;
    }
    QString text = twoDigits(hour) + QStringLiteral(" : ") + twoDigits(time.minute());
    if (withSeconds)
        text += QStringLiteral(" : ") + twoDigits(time.second());
    if (!hour24)
        text += time.hour() < 12 ? QStringLiteral("  AM") : QStringLiteral("  PM");
    return text;
}

QString clockDateText(const QDate& date, const QLocale& locale) {
    return locale.toString(date, QStringLiteral("ddd'.' dd MMM yyyy"));
}
