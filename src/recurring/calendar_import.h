#pragma once

#include "recurring/recurring_alarm.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// The alarms of a calendar file that another program wrote: each VEVENT with a display or audio VALARM, and
// each VTODO with a due time, at the moment its alarm goes off, in local time.
namespace calendar_import {

struct Found {
    QList<RecurringAlarm> once;      // rule empty
    QList<RecurringAlarm> recurring; // rule set
    QStringList skipped;             // "what: why"
};

// False with a reason when the text is no calendar at all.
bool read(const QByteArray& text, Found& found, QString& problem);

} // namespace calendar_import
