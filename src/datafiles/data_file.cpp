#include "datafiles/data_file.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/event_checker.h"
#include "engine/schedule_file.h"
#include "message/message_text.h"
#include "platform/clock.h"
#include "platform/field_reader.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "sound/notices.h"

#include <QFileInfo>

namespace {

QString errorText(const QString& lead, const FileError& error) {
    return lead + QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') + error.description;
}

// A message row ends in " at " and a time; "repeat 08:30:00" does not: its last 12 begin with "eat".
bool isMessageRow(const QString& row) {
    return QStringView(row).right(12).startsWith(QLatin1String(" at"));
}

} // namespace

void loadDataFile(Context& ctx, const QString& fileName) {
    ctx.touchAlarmSet();
    int recordCounter = 1;
    int errorCount = 0;
    const QString path = ctx.appFile(fileName);
    if (!QFileInfo::exists(path)) {
        ctx.notices.answerOk(fileName + QStringLiteral(", file not found"));
        return;
    }
    QString text;
    FileError error;
    record_file::readText(path, text, error); // reported once, at the end
    ErrorList& errors = ctx.notices.sharedErrorList();

    FieldReader reader(text);
    while (!reader.atEnd()) {
        const QString line = reader.next();
        const bool messageRow = isMessageRow(line);
        ctx.newEvent.lineValid = true;
        if (messageRow) {
            int16_t checkFlag = 1;
            EventChecker().checkMessageRow(line, checkFlag);
            if (checkFlag == 0)
                ctx.newEvent.lineValid = false;
        } else {
            filterTodayRow(line, ctx.newEvent.lineValid);
        }

        if (ctx.newEvent.lineValid) {
            // Times already gone, the present second included, are left out without a word.
            if (!alarm_event::timeWasPassed(line, ctx.clock.timeText())) {
                if (messageRow)
                    ctx.today.messages.addItem(line);
                else if (ctx.today.alarms.isEmpty())
                    ctx.today.alarms.addItem(line);
                else
                    insertTodayRow(ctx, line.right(8), line.left(line.size() - 9), true);
            }
        } else {
            errors.showList();
            if (errorCount == 0) {
                errors.addLine(fileName);
                ctx.notices.beep();
            }
            errors.addLine(QStringLiteral("Invalid data in file, Data ") + numberForMessage(recordCounter));
            ++errorCount;
        }
        ++recordCounter;
        if (errorCount == 8) {
            errors.addLine(fileName + QStringLiteral(" seems to be wrong format"));
            break;
        }
    }

    ctx.tick.on = true;
    ctx.tick.needNextAlarm = true;
    ctx.tick.haveAlarms = !ctx.today.alarms.isEmpty();
    if (error.isSet())
        ctx.notices.answerOk(errorText(QStringLiteral("Error occurred when loading data from files, "), error));
}

void writeDataFile(Context& ctx, const QString& fileName) {
    // A text the file cannot hold is refused whole: no "?" stands in for what the user typed.
    QString unheld;
    for (const QString& row : ctx.today.messages.items())
        unheld += row;
    if (const QString why = message_text::unheldWarning(unheld); !why.isEmpty()) {
        ctx.notices.answerOk(why);
        return;
    }
    QByteArray data;
    for (const QString& row : ctx.today.alarms.items())
        record_file::appendRecord(data, {row});
    for (const QString& row : ctx.today.messages.items())
        record_file::appendRecord(data, {row});
    FileError error;
    if (!record_file::rewriteBytes(ctx.appFile(fileName), data, error))
        ctx.notices.answerOk(
            errorText(QStringLiteral("Error occurred when saving alarm events to disk, data may be lost, "), error));
}

void saveDataFile(Context& ctx, const QString& fileName,
                  const std::function<void(const QString&, const QString&)>& fileAlreadyExist) {
    if (QFileInfo::exists(ctx.appFile(fileName))) {
        if (fileAlreadyExist)
            fileAlreadyExist(QStringLiteral("AlarmSet"), fileName);
        return;
    }
    writeDataFile(ctx, fileName);
}
