#pragma once

#include "recurring/recurring_alarm.h"

#include <QByteArray>
#include <QList>
#include <QString>

// recurring.ics: every recurring alarm as one VEVENT with its RRULE and a VALARM, readable by any calendar.
namespace recurring_file {

// Larger files are refused unread: a file of alarms is a few kilobytes.
inline constexpr qsizetype kMostBytes = 4 * 1024 * 1024;

// The alarms of an iCalendar text; false with a reason the user can read when it is none, or when one of its
// recurring events cannot be an alarm (a rule of seconds or minutes, a rule libical does not take).
bool parse(const QByteArray& text, QList<RecurringAlarm>& alarms, QString& problem);
// An alarm without a rule is written as a single event, as an export holds one-off alarms.
QByteArray serialize(const QList<RecurringAlarm>& alarms);

// The file in the data folder; a missing file holds no alarm. Writes go through a temporary file and a rename.
bool load(const QString& path, QList<RecurringAlarm>& alarms, QString& problem);
bool save(const QString& path, const QList<RecurringAlarm>& alarms, QString& problem);

} // namespace recurring_file
