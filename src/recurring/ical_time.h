#pragma once

#include <libical/ical.h>

#include <QDateTime>
#include <QString>

// Between Qt's times and libical's, in local wall time.
namespace ical_time {

// Once before any libical call: an error of libical must come back as a value, never end the program.
void prepare();

icaltimetype floating(const QDateTime& local);
// A libical time as local wall time: floating as it stands, UTC or a zone's time converted; zone is the
// VTIMEZONE or built-in zone of its TZID, null when it has none.
QDateTime toLocal(icaltimetype t, icaltimezone* zone = nullptr);

// A string that libical allocated, taken into a QString and freed.
QString take(char* text);

} // namespace ical_time
