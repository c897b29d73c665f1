#include "engine/schedule_file.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/event_checker.h"
#include "platform/clock.h"
#include "platform/field_reader.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "sound/notices.h"

#include <QFileInfo>

namespace {
QStringView todayRowTime(const QString& row) {
    return alarm_event::timeOf(row);
}
} // namespace

void filterTodayRow(const QString& rowText, bool& valid) {
    int16_t flag = 1;
    EventChecker().checkAlarmRow(rowText, flag);
    if (flag == 0)
        valid = false;
}

void insertTodayRow(Context& ctx, const QString& alarmTime, const QString& playWord, bool /*acceptSameTime*/) {
    const QString row = alarm_event::todayRow(playWord, alarmTime);
    const int at = ctx.today.alarms.sortedInsertPosition(QStringView(alarmTime), todayRowTime);
    ctx.today.alarms.addItem(row, at);
    ctx.today.alarms.selectOnly(at);
    ctx.newEvent.added = true;
    ctx.tick.needNextAlarm = true;
}

void insertTodayRows(Context& ctx, const QStringList& todayRows) {
    if (todayRows.isEmpty())
        return;
    const int last = ctx.today.alarms.insertSortedBatch(todayRows, todayRowTime);
    ctx.today.alarms.selectOnly(last);
    ctx.newEvent.added = true;
    ctx.tick.needNextAlarm = true;
}

void appendToSchedule(Context& ctx, const QString& message) {
    const QString line = alarm_event::scheduleLine(message, ctx.entry.date, ctx.newEvent.playWord, ctx.newEvent.time);
    FileError error;
    if (!record_file::appendRecords(ctx.appFile(QStringLiteral("future.dat")), {line}, error)) {
        ctx.notices.answerOk(QStringLiteral("Error occurred when saving alarm events to disk, data may be lost, ") +
                             QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                             error.description);
    }
    ctx.eventList.insertRow(ctx.newEvent.mark, ctx.entry.date + QLatin1Char('-') + ctx.newEvent.time, message, true);
}

void loadSchedule(Context& ctx, const QString& fileName) {
    int errorCount = 1;
    const QString path = ctx.appFile(fileName);
    if (!QFileInfo::exists(path))
        return;
    // A file that cannot be read leaves everything as it stood.
    QString text;
    FileError readError;
    if (!record_file::readText(path, text, readError))
        return;

    // A row that falls due while a long load runs is armed all the same: the tick then rings it in its second
    // or reports it as slipped, so no schedule is too large for its alarms.
    const QString loadDay = ctx.clock.dateText();
    const QString loadTime = ctx.clock.timeText();
    ctx.eventList.clear();
    ctx.eventList.beginBulk();
    QStringList armed;
    ErrorList* errors = nullptr;
    QString word;
    QString message;
    QString& mark = ctx.newEvent.mark;

    FieldReader reader(text);
    while (!reader.atEnd()) {
        QString line = reader.next();
        if (line.size() == alarm_event::kTailLength) {
            message.clear();
        } else if (line.size() > alarm_event::kTailLength) {
            message = line.left(line.size() - alarm_event::kTailLength);
            line = line.right(alarm_event::kTailLength);
        }
        const QString date = line.left(10);
        const QString play = line.mid(10, 4);
        const QString time = line.right(8);
        QChar newMark;
        if (alarm_event::fromShortWord(play, word, newMark))
            mark = newMark;

        QString today = ctx.clock.dateText();
        QString now = ctx.clock.timeText();
        if (date < today || (date == today && time < now))
            mark = QStringLiteral("x");

        ctx.newEvent.lineValid = true;
        filterTodayRow(alarm_event::todayRow(word, time), ctx.newEvent.lineValid);
        if (ctx.newEvent.lineValid) {
            ctx.eventList.insertRow(mark, date + QLatin1Char('-') + time, message, false);
            today = ctx.clock.dateText();
            now = ctx.clock.timeText();
            if ((date == today && time > now) || (date == loadDay && time > loadTime)) {
                ctx.tick.on = true;
                armed.append(alarm_event::todayRow(word, time));
                if (!message.isEmpty())
                    ctx.today.messages.addItem(alarm_event::messageRow(message, time));
            }
            continue;
        }
        if (errorCount == 1) {
            errors = &ctx.notices.newErrorList();
            errors->addLine(fileName);
            errors->showList();
        }
        errors->addLine(QStringLiteral("Invalid data in file, Data ") + numberForMessage(errorCount));
        if (errorCount == 8) {
            errors->addLine(fileName + QStringLiteral(" seems to be wrong format"));
            break;
        }
        ++errorCount;
    }
    ctx.eventList.endBulk();
    insertTodayRows(ctx, armed);
    ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
}
