#include "recurring/recurring_rows.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "platform/clock.h"
#include "recurring/recurrence.h"
#include "recurring/recurring_arming.h"
#include "recurring/recurring_file.h"
#include "sound/notices.h"

namespace recurring_rows {

namespace {

QChar markOf(const QString& plays) {
    return alarm_event::fromWholeWord(plays).mark;
}

// The alarm whose occurrence a row shows, by its day, time, play mark and message.
qsizetype alarmOfRow(const QList<RecurringAlarm>& alarms, const QString& row) {
    const alarm_event::CrackedRow c = alarm_event::crackRow(row);
    const QDate day = QDate::fromString(c.date, QStringLiteral("yyyy/MM/dd"));
    for (qsizetype i = 0; i < alarms.size(); ++i) {
        const RecurringAlarm& a = alarms.at(i);
        if (QString(markOf(a.plays)) == c.mark && a.message == c.message &&
            recurrence::timesOn(a, day).contains(c.time))
            return i;
    }
    return -1;
}

bool change(Context& ctx, const QString& row, bool wholeSeries) {
    QList<RecurringAlarm> alarms;
    QString problem;
    const qsizetype at =
        recurring_file::load(recurring_arming::icsPath(ctx), alarms, problem) ? alarmOfRow(alarms, row) : -1;
    if (at < 0) {
        ctx.notices.answerOk(problem.isEmpty() ? QStringLiteral("This recurring alarm is not in recurring.ics any more")
                                               : problem);
        return false;
    }
    const alarm_event::CrackedRow c = alarm_event::crackRow(row);
    const QString uid = alarms.at(at).uid;
    if (wholeSeries) {
        alarms.removeAt(at);
    } else {
        alarms[at].skipped.append(QDateTime(QDate::fromString(c.date, QStringLiteral("yyyy/MM/dd")),
                                            QTime::fromString(c.time, QStringLiteral("HH:mm:ss"))));
    }
    if (!recurring_file::save(recurring_arming::icsPath(ctx), alarms, problem)) {
        ctx.notices.answerOk(QStringLiteral("Error occurred when saving alarm event to disk, ") + problem);
        return false;
    }
    if (wholeSeries)
        recurring_arming::disarm(ctx, uid);
    else if (c.date == ctx.clock.dateText())
        recurring_arming::disarmOne(ctx, uid, c.time);
    show(ctx);
    return true;
}

} // namespace

void show(Context& ctx) {
    ListModel& rows = ctx.eventList.rows;
    for (int i = rows.count() - 1; i >= 0; --i)
        if (isRecurringRow(rows.item(i)))
            rows.removeItem(i);
    QList<RecurringAlarm> alarms;
    QString problem;
    if (!recurring_file::load(recurring_arming::icsPath(ctx), alarms, problem))
        return; // the arming reports it
    const QDateTime now = ctx.clock.now();
    const QDateTime last = now.addDays(kShownDays);
    for (const RecurringAlarm& alarm : alarms) {
        QDateTime after = now;
        for (int n = 0; n < kShownPerAlarm; ++n) {
            const std::optional<QDateTime> next = recurrence::nextAfter(alarm, after);
            if (!next || *next > last)
                break;
            QString row = alarm_event::eventListRow(
                QString(markOf(alarm.plays)), dateText(*next) + QLatin1Char('-') + timeText(*next), alarm.message);
            row[5] = QLatin1Char('*');
            ctx.eventList.insertRow(row, false);
            after = *next;
        }
    }
}

bool skipDay(Context& ctx, const QString& row) {
    return change(ctx, row, false);
}

bool endSeries(Context& ctx, const QString& row) {
    return change(ctx, row, true);
}

} // namespace recurring_rows
