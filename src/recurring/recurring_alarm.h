#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

// One alarm that comes back: a first moment in local wall time, a recurrence rule in iCalendar's own text
// ("FREQ=WEEKLY;BYDAY=MO,WE,FR"), the occurrences taken out of the series, and what it plays and says.
struct RecurringAlarm {
    QString uid;
    QDateTime start; // local wall time, whole seconds
    QString rule;    // the RRULE value
    QList<QDateTime> skipped;
    QString plays = QStringLiteral("once"); // once, twice, thrice or repeat
    QString message;                        // CR LF line breaks, as the schedule keeps them

    QString startTime() const { return start.time().toString(QStringLiteral("HH:mm:ss")); }
};
