#include "recurring/calendar_import.h"

#include "recurring/ical_item.h"
#include "recurring/ical_time.h"
#include "recurring/recurrence.h"
#include "recurring/recurring_file.h"

namespace calendar_import {

namespace {

QDateTime timeOf(icalcomponent* calendar, icalcomponent* item, icalproperty_kind kind) {
    icalproperty* p = icalcomponent_get_first_property(item, kind);
    if (!p)
        return {};
    const icaltimetype t = kind == ICAL_DUE_PROPERTY     ? icalproperty_get_due(p)
                           : kind == ICAL_DTEND_PROPERTY ? icalproperty_get_dtend(p)
                                                         : icalproperty_get_dtstart(p);
    if (icaltime_is_null_time(t))
        return {};
    return ical_time::toLocal(t, ical_item::zoneOf(calendar, p));
}

// The moment of the first display or audio alarm of an item, as an offset from the item's own time when it is
// relative; found false when it has none.
struct Trigger {
    bool found = false;
    bool absolute = false;
    QDateTime at;         // absolute
    qint64 seconds = 0;   // relative
    bool fromEnd = false; // RELATED=END
};

Trigger triggerOf(icalcomponent* item) {
    Trigger trigger;
    for (icalcomponent* alarm = icalcomponent_get_first_component(item, ICAL_VALARM_COMPONENT); alarm;
         alarm = icalcomponent_get_next_component(item, ICAL_VALARM_COMPONENT)) {
        icalproperty* action = icalcomponent_get_first_property(alarm, ICAL_ACTION_PROPERTY);
        icalproperty* when = icalcomponent_get_first_property(alarm, ICAL_TRIGGER_PROPERTY);
        if (!action || !when)
            continue;
        const icalproperty_action kind = icalproperty_get_action(action);
        if (kind != ICAL_ACTION_DISPLAY && kind != ICAL_ACTION_AUDIO)
            continue;
        const icaltriggertype t = icalproperty_get_trigger(when);
        trigger.found = true;
        if (!icaltime_is_null_time(t.time)) {
            trigger.absolute = true;
            trigger.at = ical_time::toLocal(t.time);
        } else {
            trigger.seconds = icaldurationtype_as_int(t.duration);
            icalparameter* related = icalproperty_get_first_parameter(when, ICAL_RELATED_PARAMETER);
            trigger.fromEnd = related && icalparameter_get_related(related) == ICAL_RELATED_END;
        }
        return trigger;
    }
    return trigger;
}

QString nameOf(icalcomponent* item) {
    const QString summary = QString::fromUtf8(icalcomponent_get_summary(item)).simplified();
    return summary.isEmpty() ? QStringLiteral("(no summary)") : summary;
}

void readItem(icalcomponent* calendar, icalcomponent* item, Found& found) {
    const bool todo = icalcomponent_isa(item) == ICAL_VTODO_COMPONENT;
    const QString name = (todo ? QStringLiteral("VTODO ") : QStringLiteral("VEVENT ")) + nameOf(item);
    const Trigger trigger = triggerOf(item);
    QDateTime base = todo ? timeOf(calendar, item, ICAL_DUE_PROPERTY) : timeOf(calendar, item, ICAL_DTSTART_PROPERTY);
    if (todo && !base.isValid()) {
        found.skipped.append(name + QStringLiteral(": no due time"));
        return;
    }
    if (!todo && !trigger.found) {
        found.skipped.append(name + QStringLiteral(": no display or audio alarm"));
        return;
    }
    if (trigger.fromEnd) {
        const QDateTime end = timeOf(calendar, item, ICAL_DTEND_PROPERTY);
        if (end.isValid())
            base = end;
    }
    QDateTime at = trigger.absolute ? trigger.at : base.addSecs(trigger.seconds);
    if (!at.isValid()) {
        found.skipped.append(name + QStringLiteral(": no time to ring at"));
        return;
    }
    at.setTime(QTime(at.time().hour(), at.time().minute(), at.time().second()));
    RecurringAlarm alarm;
    alarm.uid = QString::fromUtf8(icalcomponent_get_uid(item));
    alarm.start = at;
    ical_item::readPlaysAndMessage(item, alarm);
    icalproperty* rrule = icalcomponent_get_first_property(item, ICAL_RRULE_PROPERTY);
    if (!rrule) {
        found.once.append(alarm);
        return;
    }
    icalrecurrencetype rule = icalproperty_get_rrule(rrule);
    alarm.rule = ical_time::take(icalrecurrencetype_as_string_r(&rule));
    const QString problem = recurrence::seriesProblem(alarm);
    if (!problem.isEmpty()) {
        found.skipped.append(name + QStringLiteral(": ") + problem);
        return;
    }
    // The alarm keeps its distance from each occurrence, so a skipped occurrence moves with it.
    const qint64 shift = base.isValid() && !trigger.absolute ? trigger.seconds : 0;
    for (icalproperty* p = icalcomponent_get_first_property(item, ICAL_EXDATE_PROPERTY); p;
         p = icalcomponent_get_next_property(item, ICAL_EXDATE_PROPERTY)) {
        const QDateTime skipped = ical_time::toLocal(icalproperty_get_exdate(p), ical_item::zoneOf(calendar, p));
        if (skipped.isValid())
            alarm.skipped.append(skipped.addSecs(shift));
    }
    found.recurring.append(alarm);
}

} // namespace

bool read(const QByteArray& text, Found& found, QString& problem) {
    ical_time::prepare();
    found = Found();
    if (text.size() > recurring_file::kMostBytes) {
        problem = QStringLiteral("larger than %1 bytes").arg(recurring_file::kMostBytes);
        return false;
    }
    if (!text.trimmed().startsWith("BEGIN:VCALENDAR")) {
        problem = QStringLiteral("not an iCalendar file (it does not begin with BEGIN:VCALENDAR)");
        return false;
    }
    icalcomponent* calendar = icalparser_parse_string(text.constData());
    if (!calendar || icalcomponent_isa(calendar) != ICAL_VCALENDAR_COMPONENT) {
        if (calendar)
            icalcomponent_free(calendar);
        problem = QStringLiteral("not one iCalendar VCALENDAR");
        return false;
    }
    for (icalcomponent* item = icalcomponent_get_first_component(calendar, ICAL_ANY_COMPONENT); item;
         item = icalcomponent_get_next_component(calendar, ICAL_ANY_COMPONENT)) {
        const icalcomponent_kind kind = icalcomponent_isa(item);
        if (kind == ICAL_VEVENT_COMPONENT || kind == ICAL_VTODO_COMPONENT)
            readItem(calendar, item, found);
    }
    icalcomponent_free(calendar);
    return true;
}

} // namespace calendar_import
