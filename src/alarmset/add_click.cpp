#include "alarmset/add_click.h"

#include "alarmset/form4_links.h"
#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "sound/notices.h"

namespace {

void padToTwo(QString& text) {
    if (text.size() == 1)
        text.prepend(QLatin1Char('0'));
}

} // namespace

QString TwentyFourHour(const QString& hourText, const QString& amPm) {
    if (hourText != QLatin1String("12") && amPm == QLatin1String("PM"))
        return QString::number(leadingDigitsValue(hourText) + 12);
    if (hourText == QLatin1String("12") && amPm == QLatin1String("AM"))
        return QStringLiteral("00");
    return hourText;
}

void AddClick(Context& ctx, EntryControls& c, QString& strTimesOfPlay, const Form4Links& links) {
    Module1& m = ctx.m;
    // Without seconds whatever the box was left holding is overwritten before any test.
    if (m.blnNoSecond) {
        c.cbSec = QStringLiteral("00");
        c.cbSecIndex = 0;
    }
    if (c.cbHour.isEmpty() || c.cbMin.isEmpty() || c.cbSec.isEmpty()) {
        ctx.notices.AnswerOk(QStringLiteral("Invalid input"));
        return;
    }
    const long hour = leadingDigitsValue(c.cbHour);
    const long minute = leadingDigitsValue(c.cbMin);
    const long second = leadingDigitsValue(c.cbSec);
    if (hour > 12 || minute > 59 || second > 59 || hour == 0) {
        ctx.notices.AnswerOk(QStringLiteral("Invalid input"));
        return;
    }
    padToTwo(c.cbHour);
    padToTwo(c.cbMin);
    padToTwo(c.cbSec);

    QString& eventTime = ctx.form8.strEventTime;
    eventTime = TwentyFourHour(c.cbHour, c.txtAm) + QLatin1Char(':') + c.cbMin + QLatin1Char(':') + c.cbSec;
    if (c.cbPlayTimesIndex >= 0)
        strTimesOfPlay = c.cbPlayTimesText;

    if (m.strAlarmDate != ctx.clock.dateText()) {
        // Another day, past ones included: straight to the schedule, whatever the time.
        links.callShowEventList();
        const alarm_event::PlayForms forms = alarm_event::fromWholeWord(strTimesOfPlay);
        ctx.form8.strEventPlay = forms.shortWord;
        ctx.form8.strEventMark = forms.mark;
        if (m.blnWithMessage)
            links.callGetOldMessageToTextbox(QString()); // Form5 saves it when the user confirms
        else
            SaveFutureFile(ctx, QString());
        return;
    }

    if (eventTime < ctx.clock.timeText()) {
        ctx.notices.AnswerOk(QStringLiteral("Time was passed or next day"));
        ctx.notices.Beep();
    } else {
        ctx.form8.blnAdded = false;
        m.blnTickOn = true;
        Sorting(ctx, eventTime, strTimesOfPlay, true);
        // Form5 ties the message to the row that Sorting left selected.
        if (ctx.form8.blnAdded && m.blnWithMessage && m.lngTopWho == 0) {
            links.shadeDataList();
            links.callGetOldMessageToTextbox(QString());
        }
    }
    m.blnHaveAlarms = ctx.lstData.count() >= 1;
}
