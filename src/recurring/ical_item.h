#pragma once

#include "recurring/recurring_alarm.h"

#include <libical/ical.h>

// What an event or a to-do of any calendar program says of an alarm.
namespace ical_item {

// Our own property for an alarm's play count, read and written under this one name.
inline constexpr const char* kPlaysProperty = "X-BELLWICK-PLAYS";

// The zone of a time property's TZID, from the file's VTIMEZONEs or libical's own; null when it has none.
icaltimezone* zoneOf(icalcomponent* calendar, icalproperty* p);

// The play count (ours, else "once") and the message (the description, else another program's summary), with
// line breaks and quotes as the schedule keeps them.
void readPlaysAndMessage(icalcomponent* item, RecurringAlarm& alarm);

} // namespace ical_item
