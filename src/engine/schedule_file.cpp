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

void Filting(const QString& strAlarmEvent, bool& Fdata) {
    int16_t flag = 1;
    EventChecker().CheckAlarmEvent(strAlarmEvent, flag);
    if (flag == 0)
        Fdata = false;
}

void Sorting(Context& ctx, const QString& strGetAlarmTimeIs, const QString& strGetPlayTimesIs,
             bool /*blnAcceptSameAlarm*/) {
    const QString row = alarm_event::todayRow(strGetPlayTimesIs, strGetAlarmTimeIs);
    const int at = ctx.lstData.sortedInsertPosition(QStringView(strGetAlarmTimeIs), todayRowTime);
    ctx.lstData.addItem(row, at);
    ctx.lstData.setListIndex(at);
    ctx.form8.blnAdded = true;
    ctx.m.blnNeedNextAlarm = true;
}

void SortingBatch(Context& ctx, const QStringList& todayRows) {
    if (todayRows.isEmpty())
        return;
    const int last = ctx.lstData.insertSortedBatch(todayRows, todayRowTime);
    ctx.lstData.setListIndex(last);
    ctx.form8.blnAdded = true;
    ctx.m.blnNeedNextAlarm = true;
}

void SaveFutureFile(Context& ctx, const QString& MessageInput) {
    const QString line =
        alarm_event::scheduleLine(MessageInput, ctx.m.strAlarmDate, ctx.form8.strEventPlay, ctx.form8.strEventTime);
    FileError error;
    if (!record_file::appendRecords(ctx.appFile(QStringLiteral("future.dat")), {line}, error)) {
        ctx.notices.AnswerOk(QStringLiteral("Error occurred when saving alarm events to disk, data may be lost, ") +
                             QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                             error.description);
    }
    ctx.Bwklistbox1.ShowData(ctx.form8.strEventMark, ctx.m.strAlarmDate + QLatin1Char('-') + ctx.form8.strEventTime,
                             MessageInput, true);
}

void LoadFutureFile(Context& ctx, const QString& fFileName) {
    int errorCount = 1;
    const QString path = ctx.appFile(fFileName);
    if (!QFileInfo::exists(path))
        return;
    // A file that cannot be read leaves everything as it stood.
    QString text;
    FileError readError;
    if (!record_file::readText(path, text, readError))
        return;

    ctx.Bwklistbox1.ClearListView();
    ctx.Bwklistbox1.beginBulk();
    QStringList armed;
    ErrorList* errors = nullptr;
    QString word;
    QString message;
    QString& mark = ctx.form8.strEventMark;

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

        ctx.form8.blnLineValid = true;
        Filting(alarm_event::todayRow(word, time), ctx.form8.blnLineValid);
        if (ctx.form8.blnLineValid) {
            ctx.Bwklistbox1.ShowData(mark, date + QLatin1Char('-') + time, message, false);
            today = ctx.clock.dateText();
            now = ctx.clock.timeText();
            if (date == today && time > now) {
                ctx.m.blnTickOn = true;
                armed.append(alarm_event::todayRow(word, time));
                if (!message.isEmpty())
                    ctx.lstMessage.addItem(alarm_event::messageRow(message, time));
            }
            continue;
        }
        if (errorCount == 1) {
            errors = &ctx.notices.NewErrorList();
            errors->AddItem(fFileName);
            errors->Show();
        }
        errors->AddItem(QStringLiteral("Invalid data in file, Data ") + numberForMessage(errorCount));
        if (errorCount == 8) {
            errors->AddItem(fFileName + QStringLiteral(" seems to be wrong format"));
            break;
        }
        ++errorCount;
    }
    ctx.Bwklistbox1.endBulk();
    SortingBatch(ctx, armed);
    ctx.m.blnHaveAlarms = ctx.lstData.count() > 0;
}
