#include "platform/clock.h"

#include <QLocale>

QString Clock::dateText() const {
    return ::dateText(now());
}
QString Clock::timeText() const {
    return ::timeText(now());
}

QString dateText(const QDateTime& t) {
    return t.date().toString(QStringLiteral("yyyy/MM/dd"));
}

QString timeText(const QDateTime& t) {
    return t.time().toString(QStringLiteral("HH:mm:ss"));
}

QString captionMoment(const QDateTime& t) {
    // The C locale gives English month names and AM/PM whatever the desktop's language.
    return QLocale::c().toString(t, QStringLiteral("dd MMM yyyy / hh:mm AP"));
}

QString twelveHourTime(const QString& hhmmss) {
    const QTime time = QTime::fromString(hhmmss, QStringLiteral("HH:mm:ss"));
    if (!time.isValid())
        return hhmmss;
    return QLocale::c().toString(time, QStringLiteral("hh:mm:ss AP"));
}
