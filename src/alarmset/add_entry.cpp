#include "alarmset/add_entry.h"

#include "alarmset/alarm_set_links.h"
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

QString twentyFourHour(const QString& hourText, const QString& amPm) {
    if (hourText != QLatin1String("12") && amPm == QLatin1String("PM"))
        return QString::number(leadingDigitsValue(hourText) + 12);
    if (hourText == QLatin1String("12") && amPm == QLatin1String("AM"))
        return QStringLiteral("00");
    return hourText;
}

void addEntry(Context& ctx, EntryControls& c, QString& playWord, const AlarmSetLinks& links) {
    // Without seconds whatever the box was left holding is overwritten before any test.
    if (ctx.options.noSecond) {
        c.secondBox = QStringLiteral("00");
        c.secondIndex = 0;
    }
    if (c.hourBox.isEmpty() || c.minuteBox.isEmpty() || c.secondBox.isEmpty()) {
        ctx.notices.answerOk(QStringLiteral("Invalid input"));
        return;
    }
    const long hour = leadingDigitsValue(c.hourBox);
    const long minute = leadingDigitsValue(c.minuteBox);
    const long second = leadingDigitsValue(c.secondBox);
    if (hour > 12 || minute > 59 || second > 59 || hour == 0) {
        ctx.notices.answerOk(QStringLiteral("Invalid input"));
        return;
    }
    padToTwo(c.hourBox);
    padToTwo(c.minuteBox);
    padToTwo(c.secondBox);

    QString& eventTime = ctx.newEvent.time;
    eventTime = twentyFourHour(c.hourBox, c.amPm) + QLatin1Char(':') + c.minuteBox + QLatin1Char(':') + c.secondBox;
    if (c.playCountIndex >= 0)
        playWord = c.playCountText;

    if (ctx.entry.date != ctx.clock.dateText()) {
        // Another day, past ones included: straight to the schedule, whatever the time.
        links.callShowEventList();
        const alarm_event::PlayForms forms = alarm_event::fromWholeWord(playWord);
        ctx.newEvent.playWord = forms.shortWord;
        ctx.newEvent.mark = forms.mark;
        if (ctx.entry.withMessage)
            links.callOpenInputMessage(QString()); // InputMessageWindow saves it when the user confirms
        else
            appendToSchedule(ctx, QString());
        return;
    }

    if (eventTime < ctx.clock.timeText()) {
        ctx.notices.answerOk(QStringLiteral("Time was passed or next day"));
        ctx.notices.beep();
    } else {
        ctx.newEvent.added = false;
        ctx.tick.on = true;
        insertTodayRow(ctx, eventTime, playWord, true);
        // InputMessageWindow ties the message to the row that insertTodayRow left selected.
        if (ctx.newEvent.added && ctx.entry.withMessage && ctx.front.claimant == 0) {
            links.shadeTodayList();
            links.callOpenInputMessage(QString());
        }
    }
    ctx.tick.haveAlarms = ctx.today.alarms.count() >= 1;
}
