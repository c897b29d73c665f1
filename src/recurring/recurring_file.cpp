#include "recurring/recurring_file.h"

#include "platform/record_file.h"
#include "recurring/ical_item.h"
#include "recurring/ical_time.h"
#include "recurring/recurrence.h"

#include <QFileInfo>

namespace recurring_file {

namespace {

// Owns a component libical gave us.
struct Owned {
    icalcomponent* c;
    ~Owned() {
        if (c)
            icalcomponent_free(c);
    }
};

bool readEvent(icalcomponent* calendar, icalcomponent* event, RecurringAlarm& alarm, QString& problem) {
    const QString uid = QString::fromUtf8(icalcomponent_get_uid(event));
    const QString name = uid.isEmpty() ? QStringLiteral("an event without a UID") : uid;
    icalproperty* rrule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
    icalproperty* dtstart = icalcomponent_get_first_property(event, ICAL_DTSTART_PROPERTY);
    if (!rrule || !dtstart) {
        problem = QStringLiteral("%1 has no RRULE or no DTSTART").arg(name);
        return false;
    }
    icalrecurrencetype rule = icalproperty_get_rrule(rrule);
    alarm.rule = ical_time::take(icalrecurrencetype_as_string_r(&rule));
    if (rule.freq == ICAL_NO_RECURRENCE)
        alarm.rule = QString::fromUtf8(icalproperty_get_value_as_string(rrule));
    const QString ruleProblem = recurrence::ruleProblem(alarm.rule);
    if (!ruleProblem.isEmpty()) {
        problem = QStringLiteral("%1: %2").arg(name, ruleProblem);
        return false;
    }
    const icaltimetype start = icalproperty_get_dtstart(dtstart);
    alarm.start = ical_time::toLocal(start, ical_item::zoneOf(calendar, dtstart));
    if (!alarm.start.isValid() || start.is_date) {
        problem = QStringLiteral("%1 has no time of day in its DTSTART").arg(name);
        return false;
    }
    alarm.uid = uid;
    for (icalproperty* p = icalcomponent_get_first_property(event, ICAL_EXDATE_PROPERTY); p;
         p = icalcomponent_get_next_property(event, ICAL_EXDATE_PROPERTY)) {
        const QDateTime skipped = ical_time::toLocal(icalproperty_get_exdate(p), ical_item::zoneOf(calendar, p));
        if (skipped.isValid())
            alarm.skipped.append(skipped);
    }
    ical_item::readPlaysAndMessage(event, alarm);
    return true;
}

icalproperty* namedX(const char* name, const QString& value) {
    icalproperty* p = icalproperty_new_x(value.toUtf8().constData());
    icalproperty_set_x_name(p, name);
    return p;
}

} // namespace

bool parse(const QByteArray& text, QList<RecurringAlarm>& alarms, QString& problem) {
    ical_time::prepare();
    alarms.clear();
    if (text.size() > kMostBytes) {
        problem = QStringLiteral("larger than %1 bytes").arg(kMostBytes);
        return false;
    }
    if (!text.trimmed().startsWith("BEGIN:VCALENDAR")) {
        problem = QStringLiteral("not an iCalendar file (it does not begin with BEGIN:VCALENDAR)");
        return false;
    }
    Owned calendar{icalparser_parse_string(text.constData())};
    if (!calendar.c || icalcomponent_isa(calendar.c) != ICAL_VCALENDAR_COMPONENT) {
        problem = QStringLiteral("not one iCalendar VCALENDAR");
        return false;
    }
    for (icalcomponent* event = icalcomponent_get_first_component(calendar.c, ICAL_VEVENT_COMPONENT); event;
         event = icalcomponent_get_next_component(calendar.c, ICAL_VEVENT_COMPONENT)) {
        RecurringAlarm alarm;
        if (!readEvent(calendar.c, event, alarm, problem))
            return false;
        alarms.append(alarm);
    }
    return true;
}

QByteArray serialize(const QList<RecurringAlarm>& alarms) {
    ical_time::prepare();
    Owned calendar{icalcomponent_new(ICAL_VCALENDAR_COMPONENT)};
    icalcomponent_add_property(calendar.c, icalproperty_new_version("2.0"));
    icalcomponent_add_property(calendar.c, icalproperty_new_prodid("-//Bellwick//Bellwick alarms//EN"));
    const icaltimetype stamp = icaltime_current_time_with_zone(icaltimezone_get_utc_timezone());
    for (const RecurringAlarm& alarm : alarms) {
        icalcomponent* event = icalcomponent_new(ICAL_VEVENT_COMPONENT);
        icalcomponent_add_property(event, icalproperty_new_uid(alarm.uid.toUtf8().constData()));
        icalcomponent_add_property(event, icalproperty_new_dtstamp(stamp));
        icalcomponent_add_property(event, icalproperty_new_dtstart(ical_time::floating(alarm.start)));
        if (!alarm.rule.isEmpty()) {
            icalrecurrencetype rule = icalrecurrencetype_from_string(alarm.rule.toUtf8().constData());
            icalcomponent_add_property(event, icalproperty_new_rrule(rule));
        }
        for (const QDateTime& skipped : alarm.skipped)
            icalcomponent_add_property(event, icalproperty_new_exdate(ical_time::floating(skipped)));
        QString message = alarm.message;
        message.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        const QString summary = message.isEmpty() ? QStringLiteral("Alarm") : message.section(QLatin1Char('\n'), 0, 0);
        icalcomponent_add_property(event, icalproperty_new_summary(summary.toUtf8().constData()));
        if (!message.isEmpty())
            icalcomponent_add_property(event, icalproperty_new_description(message.toUtf8().constData()));
        icalcomponent_add_property(event, namedX(ical_item::kPlaysProperty, alarm.plays));
        icalcomponent* valarm = icalcomponent_new(ICAL_VALARM_COMPONENT);
        icalcomponent_add_property(valarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
        icalcomponent_add_property(valarm, icalproperty_new_description(summary.toUtf8().constData()));
        icaltriggertype trigger{};
        trigger.time = icaltime_null_time();
        trigger.duration = icaldurationtype_null_duration();
        icalcomponent_add_property(valarm, icalproperty_new_trigger(trigger));
        icalcomponent_add_component(event, valarm);
        icalcomponent_add_component(calendar.c, event);
    }
    return ical_time::take(icalcomponent_as_ical_string_r(calendar.c)).toUtf8();
}

bool load(const QString& path, QList<RecurringAlarm>& alarms, QString& problem) {
    alarms.clear();
    if (!QFileInfo::exists(path))
        return true;
    if (QFileInfo(path).size() > kMostBytes) {
        problem = QStringLiteral("%1: larger than %2 bytes").arg(path).arg(kMostBytes);
        return false;
    }
    QByteArray bytes;
    FileError error;
    if (!record_file::readBytes(path, bytes, error)) {
        problem = QStringLiteral("%1: %2").arg(path, error.description);
        return false;
    }
    if (!parse(bytes, alarms, problem)) {
        problem = QStringLiteral("%1: %2").arg(path, problem);
        return false;
    }
    return true;
}

bool save(const QString& path, const QList<RecurringAlarm>& alarms, QString& problem) {
    FileError error;
    if (!record_file::rewriteBytes(path, serialize(alarms), error)) {
        problem = QStringLiteral("%1: %2").arg(path, error.description);
        return false;
    }
    return true;
}

} // namespace recurring_file
