#include "datafiles/data_file.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/event_checker.h"
#include "engine/schedule_file.h"
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

void LoadClick(Context& ctx, const QString& fFileName) {
    ctx.touchForm4();
    int recordCounter = 1;
    int errorCount = 0;
    const QString path = ctx.appFile(fFileName);
    if (!QFileInfo::exists(path)) {
        ctx.notices.AnswerOk(fFileName + QStringLiteral(", file not found"));
        return;
    }
    QString text;
    FileError error;
    record_file::readText(path, text, error); // reported once, at the end
    ErrorList& errors = ctx.notices.SharedErrorList();

    FieldReader reader(text);
    while (!reader.atEnd()) {
        const QString strDataLine = reader.next();
        const bool messageRow = isMessageRow(strDataLine);
        ctx.form8.blnLineValid = true;
        if (messageRow) {
            int16_t iCheckFlag = 1;
            EventChecker().CheckMessageEvent(strDataLine, iCheckFlag);
            if (iCheckFlag == 0)
                ctx.form8.blnLineValid = false;
        } else {
            Filting(strDataLine, ctx.form8.blnLineValid);
        }

        if (ctx.form8.blnLineValid) {
            // Times already gone, the present second included, are left out without a word.
            if (!alarm_event::timeWasPassed(strDataLine, ctx.clock.timeText())) {
                if (messageRow)
                    ctx.lstMessage.addItem(strDataLine);
                else if (ctx.lstData.isEmpty())
                    ctx.lstData.addItem(strDataLine);
                else
                    Sorting(ctx, strDataLine.right(8), strDataLine.left(strDataLine.size() - 9), true);
            }
        } else {
            errors.Show();
            if (errorCount == 0) {
                errors.AddItem(fFileName);
                ctx.notices.Beep();
            }
            errors.AddItem(QStringLiteral("Invalid data in file, Data ") + numberForMessage(recordCounter));
            ++errorCount;
        }
        ++recordCounter;
        if (errorCount == 8) {
            errors.AddItem(fFileName + QStringLiteral(" seems to be wrong format"));
            break;
        }
    }

    ctx.m.blnTickOn = true;
    ctx.m.blnNeedNextAlarm = true;
    ctx.m.blnHaveAlarms = !ctx.lstData.isEmpty();
    if (error.isSet())
        ctx.notices.AnswerOk(errorText(QStringLiteral("Error occurred when loading data from files, "), error));
}

void WriteDataFile(Context& ctx, const QString& fFileName) {
    QByteArray data;
    for (const QString& row : ctx.lstData.items())
        record_file::appendRecord(data, {row});
    for (const QString& row : ctx.lstMessage.items())
        record_file::appendRecord(data, {row});
    FileError error;
    if (!record_file::rewriteBytes(ctx.appFile(fFileName), data, error))
        ctx.notices.AnswerOk(
            errorText(QStringLiteral("Error occurred when saving alarm events to disk, data may be lost, "), error));
}

void SaveFileClick(Context& ctx, const QString& fFileName,
                   const std::function<void(const QString&, const QString&)>& fileAlreadyExist) {
    if (QFileInfo::exists(ctx.appFile(fFileName))) {
        if (fileAlreadyExist)
            fileAlreadyExist(QStringLiteral("AlarmSet"), fFileName);
        return;
    }
    WriteDataFile(ctx, fFileName);
}
