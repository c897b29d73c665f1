#include "recurring/recurring_arming.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"
#include "platform/record_file.h"
#include "recurring/recurrence.h"
#include "recurring/recurring_file.h"
#include "sound/notices.h"

#include <QFileInfo>

namespace recurring_arming {

namespace {

void writeRung(const QString& path, const QHash<QString, QString>& rung) {
    QByteArray text;
    for (auto it = rung.cbegin(); it != rung.cend(); ++it)
        text += it.key().toUtf8() + ' ' + it.value().toUtf8() + '\n';
    FileError error;
    // A lost write only lets an occurrence ring again after a restart of the same day; nothing to stop for.
    record_file::rewriteBytes(path, text, error);
}

void newDay(Context& ctx) {
    const QString today = ctx.clock.dateText();
    if (ctx.recurring.day != today) {
        ctx.recurring.day = today;
        ctx.recurring.armed.clear();
    }
}

} // namespace

QString icsPath(const Context& ctx) {
    return ctx.appFile(QStringLiteral("recurring.ics"));
}

QString statePath(const Context& ctx) {
    return ctx.appFile(QStringLiteral("recurring.state"));
}

QHash<QString, QString> readRung(const QString& path) {
    QHash<QString, QString> rung;
    QByteArray bytes;
    FileError error;
    if (!QFileInfo::exists(path) || !record_file::readBytes(path, bytes, error))
        return rung;
    for (const QByteArray& line : bytes.split('\n')) {
        const qsizetype space = line.indexOf(' ');
        if (space > 0)
            rung.insert(QString::fromUtf8(line.left(space)), QString::fromUtf8(line.mid(space + 1)).trimmed());
    }
    return rung;
}

void armToday(Context& ctx) {
    newDay(ctx);
    QList<RecurringAlarm> alarms;
    QString problem;
    if (!recurring_file::load(icsPath(ctx), alarms, problem)) {
        if (problem != ctx.recurring.lastProblem) {
            ErrorList& errors = ctx.notices.newErrorList();
            errors.addLine(QStringLiteral("recurring.ics"));
            errors.addLine(problem);
            errors.showList();
        }
        ctx.recurring.lastProblem = problem;
        return;
    }
    ctx.recurring.lastProblem.clear();
    const QString today = ctx.clock.dateText();
    const QDate day = ctx.clock.now().date();
    const QHash<QString, QString> rung = readRung(statePath(ctx));
    QStringList rows;
    for (const RecurringAlarm& alarm : alarms) {
        const QString lastRung = rung.value(alarm.uid);
        for (const QString& time : recurrence::timesOn(alarm, day)) {
            // Strictly later than now, as a schedule line of today is armed.
            if (time <= ctx.clock.timeText() || today + QLatin1Char(' ') + time <= lastRung)
                continue;
            const bool armed =
                std::any_of(ctx.recurring.armed.cbegin(), ctx.recurring.armed.cend(),
                            [&](const RecurringDay::Armed& a) { return a.uid == alarm.uid && a.time == time; });
            if (armed)
                continue;
            ctx.recurring.armed.append({alarm.uid, time, alarm.plays, alarm.message, false});
            rows.append(alarm_event::todayRow(alarm.plays, time));
            if (!alarm.message.isEmpty())
                ctx.today.messages.addItem(alarm_event::messageRow(alarm.message, time));
        }
    }
    if (rows.isEmpty())
        return;
    ctx.tick.on = true;
    insertTodayRows(ctx, rows);
    ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
}

void armAtStart(Context& ctx) {
    if (!QFileInfo::exists(icsPath(ctx)))
        return;
    // The window's load reads the schedule, and with it arms these; without a window, arm them here.
    ctx.touchAlarmSet();
    armToday(ctx);
}

void noteTaken(Context& ctx, const QString& time) {
    for (RecurringDay::Armed& a : ctx.recurring.armed) {
        if (a.taken || a.time != time)
            continue;
        a.taken = true;
        QHash<QString, QString> rung = readRung(statePath(ctx));
        rung.insert(a.uid, ctx.recurring.day + QLatin1Char(' ') + a.time);
        writeRung(statePath(ctx), rung);
        return;
    }
}

bool disarmOne(Context& ctx, const QString& uid, const QString& time) {
    for (qsizetype i = 0; i < ctx.recurring.armed.size(); ++i) {
        const RecurringDay::Armed a = ctx.recurring.armed.at(i);
        if (a.uid != uid || a.time != time || a.taken)
            continue;
        const int row = static_cast<int>(ctx.today.alarms.items().indexOf(alarm_event::todayRow(a.plays, a.time)));
        if (row >= 0)
            ctx.today.alarms.removeItem(row);
        if (!a.message.isEmpty()) {
            const int message =
                static_cast<int>(ctx.today.messages.items().indexOf(alarm_event::messageRow(a.message, a.time)));
            if (message >= 0)
                ctx.today.messages.removeItem(message);
        }
        // Kept as taken, so a later arming of the day leaves it out.
        ctx.recurring.armed[i].taken = true;
        ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
        ctx.tick.needNextAlarm = true;
        return true;
    }
    return false;
}

void disarm(Context& ctx, const QString& uid) {
    const QList<RecurringDay::Armed> armed = ctx.recurring.armed;
    for (const RecurringDay::Armed& a : armed)
        if (a.uid == uid)
            disarmOne(ctx, uid, a.time);
}

std::optional<QDateTime> nextOccurrenceAfter(const Context& ctx, const QDateTime& after) {
    QList<RecurringAlarm> alarms;
    QString problem;
    if (!recurring_file::load(icsPath(ctx), alarms, problem))
        return std::nullopt;
    std::optional<QDateTime> next;
    for (const RecurringAlarm& alarm : alarms) {
        const std::optional<QDateTime> at = recurrence::nextAfter(alarm, after);
        if (at && (!next || *at < *next))
            next = at;
    }
    return next;
}

} // namespace recurring_arming
