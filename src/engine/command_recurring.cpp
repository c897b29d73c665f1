#include "engine/command_recurring.h"

#include "engine/alarm_event.h"
#include "engine/command_service.h"
#include "engine/context.h"
#include "eventlist/save_all_events.h"
#include "message/message_text.h"
#include "platform/clock.h"
#include "recurring/calendar_import.h"
#include "recurring/recurrence.h"
#include "recurring/recurring_arming.h"
#include "recurring/recurring_file.h"
#include "recurring/recurring_rows.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>

namespace command_recurring {

namespace {

using command_protocol::Event;
using command_protocol::Request;

const QStringList kDays{QStringLiteral("mon"), QStringLiteral("tue"), QStringLiteral("wed"), QStringLiteral("thu"),
                        QStringLiteral("fri"), QStringLiteral("sat"), QStringLiteral("sun")};
const QStringList kIcalDays{QStringLiteral("MO"), QStringLiteral("TU"), QStringLiteral("WE"), QStringLiteral("TH"),
                            QStringLiteral("FR"), QStringLiteral("SA"), QStringLiteral("SU")};

// The days of the week (1 Monday .. 7 Sunday) of an --every, empty for one that names none.
QList<int> weekdaysOf(const QString& every) {
    if (every == QLatin1String("weekdays"))
        return {1, 2, 3, 4, 5};
    if (every == QLatin1String("weekends"))
        return {6, 7};
    QList<int> days;
    for (const QString& name : every.split(QLatin1Char(','))) {
        const qsizetype at = kDays.indexOf(name.trimmed().toLower());
        if (at < 0)
            return {};
        if (!days.contains(int(at) + 1))
            days.append(int(at) + 1);
    }
    std::sort(days.begin(), days.end());
    return days;
}

bool isPlainEvery(const QString& every) {
    return every == QLatin1String("day") || every == QLatin1String("week") || every == QLatin1String("month") ||
           every == QLatin1String("year");
}

QByteArray refusal(const QString& text) {
    return command_protocol::toLine({{"ok", false}, {"error", text}});
}

QString oneOffId(const Event& e) {
    const QByteArray key =
        (e.date + QLatin1Char('|') + e.time + QLatin1Char('|') + e.plays + QLatin1Char('|') + e.message).toUtf8();
    return QStringLiteral("o") +
           QString::fromLatin1(QCryptographicHash::hash(key, QCryptographicHash::Sha1).toHex().left(12));
}

// "7:5" or "07:05:00" as "07:05:00"; empty when it is no time of day.
QString fullTime(const QString& text) {
    QStringList fields = text.split(QLatin1Char(':'));
    if (fields.size() == 2)
        fields.append(QStringLiteral("0"));
    if (fields.size() != 3)
        return {};
    const QTime t(fields[0].toInt(), fields[1].toInt(), fields[2].toInt());
    return t.isValid() ? t.toString(QStringLiteral("HH:mm:ss")) : QString();
}

Event eventOf(const RecurringAlarm& alarm, const QDateTime& now) {
    Event e;
    e.time = alarm.startTime();
    e.plays = alarm.plays;
    e.message = message_text::shown(alarm.message);
    e.id = alarm.uid;
    e.every = everyOf(alarm.rule);
    if (const std::optional<QDateTime> next = recurrence::nextAfter(alarm, now)) {
        e.date = dateText(*next);
        e.time = timeText(*next);
        e.next = e.date + QLatin1Char(' ') + e.time;
    }
    return e;
}

bool removeOneOff(Context& ctx, const Event& e) {
    const QString message = message_text::stored(e.message);
    bool removed = false;
    if (e.date == ctx.clock.dateText()) {
        const int row = static_cast<int>(ctx.today.alarms.items().indexOf(alarm_event::todayRow(e.plays, e.time)));
        if (row >= 0) {
            ctx.today.alarms.removeItem(row);
            if (!message.isEmpty()) {
                const int m =
                    static_cast<int>(ctx.today.messages.items().indexOf(alarm_event::messageRow(message, e.time)));
                if (m >= 0)
                    ctx.today.messages.removeItem(m);
            }
            ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
            ctx.tick.needNextAlarm = true;
            removed = true;
        }
    }
    // A stored event goes from the event list and the file, so it does not come back at the next start.
    const QStringList& rows = ctx.eventList.rows.items();
    for (int i = 0; i < rows.size(); ++i) {
        if (recurring_rows::isRecurringRow(rows.at(i)))
            continue;
        const alarm_event::CrackedRow c = alarm_event::crackRow(rows.at(i));
        QString word;
        QChar mark;
        alarm_event::fromShortWord(alarm_event::shortWordFromMark(c.mark.isEmpty() ? QChar() : c.mark.front()), word,
                                   mark);
        if (c.date == e.date && c.time == e.time && word == e.plays && c.message == message) {
            ctx.eventList.rows.removeItem(i);
            saveAllEvents(ctx);
            return true;
        }
    }
    return removed;
}

} // namespace

QString parseAddOption(const QString& name, const QString& value, Request& r) {
    if (name == QLatin1String("--every")) {
        if (!isPlainEvery(value) && weekdaysOf(value).isEmpty())
            return QStringLiteral("add: --every '%1' is not day, weekdays, weekends, week, month, year or days "
                                  "as mon,wed,fri")
                .arg(value);
        r.every = value;
    } else if (name == QLatin1String("--until")) {
        if (!QDate::fromString(value, QStringLiteral("yyyy/MM/dd")).isValid())
            return QStringLiteral("add: the date '%1' is not YYYY/MM/DD").arg(value);
        r.until = value;
    } else if (name == QLatin1String("--count")) {
        bool ok = false;
        r.count = value.toInt(&ok);
        if (!ok || r.count < 1 || r.count > 100000)
            return QStringLiteral("add: --count '%1' is not a number from 1 to 100000").arg(value);
    }
    return {};
}

command_protocol::Parsed parseRemove(const QStringList& arguments) {
    command_protocol::Parsed p;
    Request r;
    r.command = QStringLiteral("remove");
    r.plays.clear();
    const QStringList valued{"--id", "--date", "--time", "--plays", "--message"};
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& name = arguments.at(i);
        if (name == QLatin1String("-h") || name == QLatin1String("--help")) {
            p.help = true;
            return p;
        }
        if (!valued.contains(name)) {
            p.refusal = QStringLiteral("remove: unknown option '%1'").arg(name);
            return p;
        }
        if (++i >= arguments.size()) {
            p.refusal = QStringLiteral("remove: option '%1' needs a value").arg(name);
            return p;
        }
        const QString key = name.mid(2);
        if (r.chosenBy.contains(key)) {
            p.refusal = QStringLiteral("remove: option '%1' given twice").arg(name);
            return p;
        }
        r.chosenBy.append(key);
        const QString& value = arguments.at(i);
        if (key == QLatin1String("id"))
            r.id = value;
        else if (key == QLatin1String("date"))
            r.date = value;
        else if (key == QLatin1String("time"))
            r.time = fullTime(value).isEmpty() ? value : fullTime(value);
        else if (key == QLatin1String("plays"))
            r.plays = value;
        else
            r.message = value;
    }
    if (r.chosenBy.isEmpty()) {
        p.refusal = QStringLiteral("remove: choose the alarm by --id, --date, --time, --plays or --message, as "
                                   "'bellwick list --json' shows them");
        return p;
    }
    p.request = r;
    return p;
}

command_protocol::Parsed parseExport(const QStringList& arguments) {
    command_protocol::Parsed p;
    Request r;
    r.command = arguments.value(0);
    if (r.command == QLatin1String("import")) {
        if (arguments.size() == 2 &&
            (arguments.at(1) == QLatin1String("-h") || arguments.at(1) == QLatin1String("--help")))
            p.help = true;
        else if (arguments.size() != 2 || arguments.at(1).startsWith(QLatin1Char('-')))
            p.refusal = QStringLiteral("import: give one FILE.ics");
        else {
            r.file = arguments.at(1);
            p.request = r;
        }
        return p;
    }
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& name = arguments.at(i);
        if (name == QLatin1String("-h") || name == QLatin1String("--help")) {
            p.help = true;
            return p;
        }
        if (name != QLatin1String("--to") || !r.file.isEmpty() || i + 1 >= arguments.size() ||
            arguments.at(i + 1).isEmpty()) {
            p.refusal = QStringLiteral("export: give at most one --to FILE");
            return p;
        }
        r.file = arguments.at(++i);
    }
    p.request = r;
    return p;
}

QString ruleFor(const QString& every, const QString& until, int count) {
    QString rule;
    if (every == QLatin1String("day"))
        rule = QStringLiteral("FREQ=DAILY");
    else if (every == QLatin1String("week"))
        rule = QStringLiteral("FREQ=WEEKLY");
    else if (every == QLatin1String("month"))
        rule = QStringLiteral("FREQ=MONTHLY");
    else if (every == QLatin1String("year"))
        rule = QStringLiteral("FREQ=YEARLY");
    else {
        QStringList days;
        for (const int d : weekdaysOf(every))
            days.append(kIcalDays.at(d - 1));
        rule = QStringLiteral("FREQ=WEEKLY;BYDAY=") + days.join(QLatin1Char(','));
    }
    if (!until.isEmpty())
        rule += QStringLiteral(";UNTIL=%1T235959").arg(QString(until).remove(QLatin1Char('/')));
    if (count > 0)
        rule += QStringLiteral(";COUNT=%1").arg(count);
    return rule;
}

QString everyOf(const QString& rule) {
    QMap<QString, QString> parts;
    for (const QString& part : rule.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        parts.insert(part.section(QLatin1Char('='), 0, 0).toUpper(), part.section(QLatin1Char('='), 1));
    const QString freq = parts.take(QStringLiteral("FREQ"));
    const QString until = parts.take(QStringLiteral("UNTIL"));
    const QString count = parts.take(QStringLiteral("COUNT"));
    const QString byDay = parts.take(QStringLiteral("BYDAY"));
    if (parts.value(QStringLiteral("INTERVAL"), QStringLiteral("1")) == QLatin1String("1"))
        parts.remove(QStringLiteral("INTERVAL"));
    parts.remove(QStringLiteral("WKST"));
    QString every;
    if (parts.isEmpty() && byDay.isEmpty()) {
        const QMap<QString, QString> plain{
            {"DAILY", "day"}, {"WEEKLY", "week"}, {"MONTHLY", "month"}, {"YEARLY", "year"}};
        every = plain.value(freq);
    } else if (parts.isEmpty() && freq == QLatin1String("WEEKLY")) {
        QStringList names;
        for (const QString& d : byDay.split(QLatin1Char(','))) {
            const qsizetype at = kIcalDays.indexOf(d);
            if (at < 0)
                return rule;
            names.append(kDays.at(at));
        }
        const QString list = names.join(QLatin1Char(','));
        every = list == QLatin1String("mon,tue,wed,thu,fri") ? QStringLiteral("weekdays")
                : list == QLatin1String("sat,sun")           ? QStringLiteral("weekends")
                                                             : list;
    }
    if (every.isEmpty())
        return rule;
    if (until.size() >= 8)
        every += QStringLiteral(" until %1/%2/%3").arg(until.left(4), until.mid(4, 2), until.mid(6, 2));
    if (!count.isEmpty())
        every += QStringLiteral(" count %1").arg(count);
    return every;
}

QDate firstDay(const QString& every, const QDate& from, bool timeGoneToday) {
    if (isPlainEvery(every) && every != QLatin1String("day"))
        return from; // the day of the week, month or year comes from the first day itself
    const QList<int> days = weekdaysOf(every);
    QDate d = timeGoneToday ? from.addDays(1) : from;
    while (!days.isEmpty() && !days.contains(d.dayOfWeek()))
        d = d.addDays(1);
    return d;
}

QByteArray add(Context& ctx, const Request& request) {
    ctx.touchAlarmSet();
    QString time = fullTime(request.time);
    if (time.isEmpty())
        return refusal(QStringLiteral("Invalid input"));
    if (ctx.options.noSecond)
        time = time.left(6) + QStringLiteral("00");
    const QString shownMessage = message_text::typed(message_text::shown(request.message));
    if (message_text::length(shownMessage) > message_text::kMaxLength)
        return refusal(QStringLiteral("Message longer than %1 characters").arg(message_text::kMaxLength));
    if (!alarm_event::playWords().contains(request.plays))
        return refusal(QStringLiteral("Invalid input"));
    const QDateTime now = ctx.clock.now();
    const QDate from =
        request.date.isEmpty() ? now.date() : QDate::fromString(request.date, QStringLiteral("yyyy/MM/dd"));
    if (!from.isValid())
        return refusal(QStringLiteral("Invalid input of date"));

    RecurringAlarm alarm;
    alarm.uid = QStringLiteral("bellwick-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QTime at = QTime::fromString(time, QStringLiteral("HH:mm:ss"));
    alarm.start = QDateTime(firstDay(request.every, from, from == now.date() && at <= now.time()), at);
    alarm.rule = ruleFor(request.every, request.until, request.count);
    alarm.plays = request.plays;
    alarm.message = message_text::stored(shownMessage);
    if (!recurrence::nextAfter(alarm, now))
        return refusal(QStringLiteral("This alarm would never ring: its last day has gone"));

    QList<RecurringAlarm> alarms;
    QString problem;
    if (!recurring_file::load(recurring_arming::icsPath(ctx), alarms, problem))
        return refusal(problem);
    alarms.append(alarm);
    if (!recurring_file::save(recurring_arming::icsPath(ctx), alarms, problem))
        return refusal(QStringLiteral("Error occurred when saving alarm events to disk, ") + problem);
    recurring_arming::armToday(ctx);
    recurring_rows::show(ctx);
    return command_protocol::toLine({{"ok", true}, {"event", command_protocol::toJson(eventOf(alarm, now))}});
}

QList<Event> listEvents(Context& ctx) {
    QList<Event> events = command_service::comingEvents(ctx);
    const QString today = ctx.clock.dateText();
    for (const RecurringDay::Armed& a : ctx.recurring.armed) {
        if (a.taken || ctx.recurring.day != today)
            continue;
        const QString shown = message_text::shown(a.message);
        for (qsizetype i = 0; i < events.size(); ++i) {
            const Event& e = events.at(i);
            if (e.date == today && e.time == a.time && e.plays == a.plays && e.message == shown) {
                events.removeAt(i);
                break;
            }
        }
    }
    for (Event& e : events)
        e.id = oneOffId(e);
    QList<RecurringAlarm> alarms;
    QString problem;
    recurring_file::load(recurring_arming::icsPath(ctx), alarms, problem);
    const QDateTime now = ctx.clock.now();
    for (const RecurringAlarm& alarm : alarms)
        events.append(eventOf(alarm, now));
    std::stable_sort(events.begin(), events.end(),
                     [](const Event& a, const Event& b) { return a.date + a.time < b.date + b.time; });
    return events;
}

QByteArray remove(Context& ctx, const Request& request) {
    ctx.touchAlarmSet();
    QList<Event> candidates;
    for (const Event& e : listEvents(ctx)) {
        const bool match = (!request.chosenBy.contains(QLatin1String("id")) || e.id == request.id) &&
                           (!request.chosenBy.contains(QLatin1String("date")) || e.date == request.date) &&
                           (!request.chosenBy.contains(QLatin1String("time")) || e.time == request.time) &&
                           (!request.chosenBy.contains(QLatin1String("plays")) || e.plays == request.plays) &&
                           (!request.chosenBy.contains(QLatin1String("message")) || e.message == request.message);
        if (match)
            candidates.append(e);
    }
    if (candidates.isEmpty())
        return refusal(QStringLiteral("remove: no alarm matches"));
    if (candidates.size() > 1) {
        QStringList lines{QStringLiteral("remove: %1 alarms match; choose one by --id:").arg(candidates.size())};
        for (const Event& e : candidates)
            lines.append(e.id + QLatin1Char(' ') + command_protocol::eventLine(e));
        return refusal(lines.join(QLatin1Char('\n')));
    }
    const Event chosen = candidates.first();
    if (chosen.every.isEmpty()) {
        if (!removeOneOff(ctx, chosen))
            return refusal(QStringLiteral("remove: the alarm is gone already"));
    } else {
        QList<RecurringAlarm> alarms;
        QString problem;
        if (!recurring_file::load(recurring_arming::icsPath(ctx), alarms, problem))
            return refusal(problem);
        alarms.removeIf([&](const RecurringAlarm& a) { return a.uid == chosen.id; });
        if (!recurring_file::save(recurring_arming::icsPath(ctx), alarms, problem))
            return refusal(QStringLiteral("Error occurred when saving alarm events to disk, ") + problem);
        recurring_arming::disarm(ctx, chosen.id);
        recurring_rows::show(ctx);
    }
    return command_protocol::toLine({{"ok", true}, {"events", QJsonArray{command_protocol::toJson(chosen)}}});
}

QByteArray exportAll(Context& ctx) {
    ctx.touchAlarmSet();
    QList<RecurringAlarm> alarms;
    for (const Event& e : listEvents(ctx)) {
        if (!e.every.isEmpty())
            continue;
        RecurringAlarm a;
        a.uid = e.id;
        a.start = QDateTime(QDate::fromString(e.date, QStringLiteral("yyyy/MM/dd")),
                            QTime::fromString(e.time, QStringLiteral("HH:mm:ss")));
        a.plays = e.plays;
        a.message = message_text::stored(e.message);
        alarms.append(a);
    }
    QList<RecurringAlarm> recurring;
    QString problem;
    if (!recurring_file::load(recurring_arming::icsPath(ctx), recurring, problem))
        return refusal(problem);
    alarms += recurring;
    return command_protocol::toLine({{"ok", true}, {"ics", QString::fromUtf8(recurring_file::serialize(alarms))}});
}

QByteArray importText(Context& ctx, RoutedNotices& notices, const QString& ics) {
    ctx.touchAlarmSet();
    calendar_import::Found found;
    QString problem;
    if (!calendar_import::read(ics.toUtf8(), found, problem))
        return refusal(QStringLiteral("import: ") + problem);
    QStringList skipped = found.skipped;
    int imported = 0;
    const QDateTime now = ctx.clock.now();
    for (const RecurringAlarm& a : found.once) {
        const QString name = message_text::shown(a.message).section(QLatin1Char('\n'), 0, 0);
        if (a.start <= now) {
            skipped.append(name + QStringLiteral(": its time has gone (") + dateText(a.start) + QLatin1Char(' ') +
                           timeText(a.start) + QLatin1Char(')'));
            continue;
        }
        Request add;
        add.command = QStringLiteral("add");
        add.date = dateText(a.start);
        add.time = timeText(a.start);
        add.plays = a.plays;
        add.message = message_text::shown(a.message);
        const QJsonObject answer = command_protocol::fromLine(
            command_service::serve(ctx, notices, command_protocol::toLine(command_protocol::toJson(add))));
        if (answer.value("ok").toBool())
            ++imported;
        else
            skipped.append(name + QStringLiteral(": ") + answer.value("error").toString());
    }
    if (!found.recurring.isEmpty()) {
        QList<RecurringAlarm> alarms;
        if (!recurring_file::load(recurring_arming::icsPath(ctx), alarms, problem))
            return refusal(problem);
        for (RecurringAlarm a : found.recurring) {
            const bool known =
                std::any_of(alarms.cbegin(), alarms.cend(), [&](const RecurringAlarm& b) { return b.uid == a.uid; });
            if (known) {
                skipped.append(message_text::shown(a.message).section(QLatin1Char('\n'), 0, 0) +
                               QStringLiteral(": already here (UID %1)").arg(a.uid));
                continue;
            }
            if (!recurrence::nextAfter(a, now)) {
                skipped.append(message_text::shown(a.message).section(QLatin1Char('\n'), 0, 0) +
                               QStringLiteral(": it never rings again"));
                continue;
            }
            if (a.uid.isEmpty())
                a.uid = QStringLiteral("bellwick-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
            alarms.append(a);
            ++imported;
        }
        if (!recurring_file::save(recurring_arming::icsPath(ctx), alarms, problem))
            return refusal(QStringLiteral("Error occurred when saving alarm events to disk, ") + problem);
        recurring_arming::armToday(ctx);
        recurring_rows::show(ctx);
    }
    return command_protocol::toLine(
        {{"ok", true}, {"imported", imported}, {"skipped", QJsonArray::fromStringList(skipped)}});
}

} // namespace command_recurring
