#pragma once

#include "engine/command_protocol.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>

class Context;
class RoutedNotices;

// The sub-commands of alarms that come back, and of taking any alarm away: add --every, the list with each
// alarm's id and rule, and remove.
namespace command_recurring {

// An option of add that makes it recurring (--every, --until, --count): the refusal, or the empty text.
QString parseAddOption(const QString& name, const QString& value, command_protocol::Request& request);
command_protocol::Parsed parseRemove(const QStringList& arguments);
// export [--to FILE] and import FILE.
command_protocol::Parsed parseExport(const QStringList& arguments);

// The iCalendar rule of --every, --until and --count, and the --every text of a rule (the rule itself when no
// --every says it).
QString ruleFor(const QString& every, const QString& until, int count);
QString everyOf(const QString& rule);
// The first day on or after `from` on which a new alarm of this --every starts: a day of its weekdays, and not
// today when its time has gone.
QDate firstDay(const QString& every, const QDate& from, bool timeGoneToday);

// The running program's side.
QByteArray add(Context& ctx, const command_protocol::Request& request);
QByteArray remove(Context& ctx, const command_protocol::Request& request);
// Every alarm as one iCalendar text: today's from memory, the schedule's later ones and the recurring ones.
QByteArray exportAll(Context& ctx);
// Arms or stores each alarm of a calendar text; what it skips is answered with the reason. A one-off alarm goes
// through the Add of the Alarm Set window, its warnings routed back.
QByteArray importText(Context& ctx, RoutedNotices& notices, const QString& ics);
// Every alarm with its id, in time order: the coming ones of today and later days, and the recurring ones by
// their next occurrence (today's armed occurrences show as their alarm, not once more).
QList<command_protocol::Event> listEvents(Context& ctx);

} // namespace command_recurring
