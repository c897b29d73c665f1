#include "recurring/ical_time.h"

#include <QTimeZone>

#include <cstdlib>

namespace ical_time {

void prepare() {
    icalerror_set_errors_are_fatal(0);
}

icaltimetype floating(const QDateTime& local) {
    icaltimetype t = icaltime_null_time();
    t.year = local.date().year();
    t.month = local.date().month();
    t.day = local.date().day();
    t.hour = local.time().hour();
    t.minute = local.time().minute();
    t.second = local.time().second();
    t.is_date = 0;
    return t;
}

QDateTime toLocal(icaltimetype t, icaltimezone* zone) {
    const QDate date(t.year, t.month, t.day);
    const QTime time = t.is_date ? QTime(0, 0) : QTime(t.hour, t.minute, t.second);
    if (!date.isValid() || !time.isValid())
        return {};
    if (icaltime_is_utc(t))
        return QDateTime(date, time, Qt::UTC).toLocalTime();
    if (!zone && t.zone)
        zone = const_cast<icaltimezone*>(t.zone);
    if (zone) {
        const time_t seconds = icaltime_as_timet_with_zone(t, zone);
        return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(seconds)).toLocalTime();
    }
    const QDateTime local(date, time);
    if (local.isValid() && local.time() == time)
        return local;
    // A wall time the clock skips at a turn to summer time: the moment it would have been by the offset before
    // the turn, as far past the turn as it was meant to be past the hour.
    const int offsetBefore = QDateTime(date, QTime(0, 0)).offsetFromUtc();
    return QDateTime(date, time, Qt::OffsetFromUTC, offsetBefore).toLocalTime();
}

QString take(char* text) {
    if (!text)
        return {};
    QString s = QString::fromUtf8(text);
    std::free(text);
    return s;
}

} // namespace ical_time
