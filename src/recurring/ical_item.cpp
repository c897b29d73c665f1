#include "recurring/ical_item.h"

#include "engine/alarm_event.h"

namespace ical_item {

icaltimezone* zoneOf(icalcomponent* calendar, icalproperty* p) {
    icalparameter* tzid = p ? icalproperty_get_first_parameter(p, ICAL_TZID_PARAMETER) : nullptr;
    if (!tzid)
        return nullptr;
    const char* id = icalparameter_get_tzid(tzid);
    if (icaltimezone* own = icalcomponent_get_timezone(calendar, id))
        return own;
    return icaltimezone_get_builtin_timezone(id);
}

void readPlaysAndMessage(icalcomponent* item, RecurringAlarm& alarm) {
    QString own;
    for (icalproperty* p = icalcomponent_get_first_property(item, ICAL_X_PROPERTY); p;
         p = icalcomponent_get_next_property(item, ICAL_X_PROPERTY)) {
        if (qstricmp(icalproperty_get_x_name(p), kPlaysProperty) == 0) {
            own = QString::fromUtf8(icalproperty_get_x(p)).trimmed().toLower();
            break;
        }
    }
    alarm.plays = alarm_event::playWords().contains(own) ? own : QStringLiteral("once");
    QString message = QString::fromUtf8(icalcomponent_get_description(item));
    // Ours say an empty message by no DESCRIPTION; an event written elsewhere is named by its SUMMARY.
    if (message.isEmpty() && own.isEmpty())
        message = QString::fromUtf8(icalcomponent_get_summary(item));
    message.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    message.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    message.replace(QLatin1Char('"'), QLatin1Char('\''));
    alarm.message = message;
}

} // namespace ical_item
