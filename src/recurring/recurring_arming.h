#pragma once

#include "recurring/recurring_alarm.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

class Context;

// Recurring alarms in today's lists: their occurrences of the day become ordinary today rows, as if the
// schedule file had held them, and the last occurrence that rang is kept in recurring.state so that a restart
// never arms it again.
namespace recurring_arming {

QString icsPath(const Context& ctx);
QString statePath(const Context& ctx);

// Arms today's coming occurrences not armed or rung yet. A file that cannot be read is reported once.
void armToday(Context& ctx);
// At start: today's occurrences are armed through the first touch of the Alarm Set window, as the schedule's.
void armAtStart(Context& ctx);
// The alarm of today's lists at this time has fired or was reported: its occurrence is kept as rung.
void noteTaken(Context& ctx, const QString& time);
// Takes the not yet rung occurrences of this alarm out of today's lists.
void disarm(Context& ctx, const QString& uid);
// Takes one armed occurrence out of today's lists; false when it is not armed.
bool disarmOne(Context& ctx, const QString& uid, const QString& time);

// The last occurrence that rang, by uid: "yyyy/mm/dd hh:mm:ss".
QHash<QString, QString> readRung(const QString& path);

// The first occurrence of any recurring alarm after this moment, for whoever needs the next alarm of a later
// day; nothing when there is none or the file cannot be read.
std::optional<QDateTime> nextOccurrenceAfter(const Context& ctx, const QDateTime& after);

} // namespace recurring_arming
