#include "alarmset/add_entry.h"

#include "alarmset/alarm_set_links.h"
#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "message/message_text.h"
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

AddResult addEvent(Context& ctx, EventEntry& entry, QString& playWord, const AlarmSetLinks& links) {
    EntryControls& c = entry.controls;
    // The message box never holds more than it takes, nor a double quote; a message that comes with the entry
    // keeps the same rules, and is refused whole rather than cut, as is one the files cannot hold.
    const QString shownMessage = message_text::typed(message_text::shown(entry.message));
    if (const QString why = message_text::refusal(shownMessage); !why.isEmpty()) {
        ctx.notices.answerOk(why);
        return AddResult::Refused;
    }
    const QString message = message_text::stored(shownMessage);

    // Without seconds whatever the box was left holding is overwritten before any test.
    if (ctx.options.noSecond) {
        c.secondBox = QStringLiteral("00");
        c.secondIndex = 0;
    }
    if (c.hourBox.isEmpty() || c.minuteBox.isEmpty() || c.secondBox.isEmpty()) {
        ctx.notices.answerOk(QStringLiteral("Invalid input"));
        return AddResult::Refused;
    }
    const long hour = leadingDigitsValue(c.hourBox);
    const long minute = leadingDigitsValue(c.minuteBox);
    const long second = leadingDigitsValue(c.secondBox);
    if (hour > 12 || minute > 59 || second > 59 || hour == 0) {
        ctx.notices.answerOk(QStringLiteral("Invalid input"));
        return AddResult::Refused;
    }
    padToTwo(c.hourBox);
    padToTwo(c.minuteBox);
    padToTwo(c.secondBox);

    QString& eventTime = ctx.newEvent.time;
    eventTime = twentyFourHour(c.hourBox, c.amPm) + QLatin1Char(':') + c.minuteBox + QLatin1Char(':') + c.secondBox;
    if (c.playCountIndex >= 0)
        playWord = c.playCountText;

    if (entry.date != ctx.clock.dateText()) {
        // Another day, past ones included: straight to the schedule, whatever the time.
        links.callShowEventList();
        const alarm_event::PlayForms forms = alarm_event::fromWholeWord(playWord);
        ctx.newEvent.playWord = forms.shortWord;
        ctx.newEvent.mark = forms.mark;
        if (entry.askMessage) {
            links.callOpenInputMessage(QString()); // InputMessageWindow saves it when the user confirms
            return AddResult::MessageAsked;
        }
        appendToSchedule(ctx, entry.date, message, entry.highlightInList);
        return AddResult::Schedule;
    }

    AddResult result = AddResult::Refused;
    if (eventTime < ctx.clock.timeText()) {
        ctx.notices.answerOk(QStringLiteral("Time was passed or next day"));
        ctx.notices.beep();
    } else {
        ctx.newEvent.added = false;
        ctx.tick.on = true;
        insertTodayRow(ctx, eventTime, playWord, true);
        result = AddResult::Today;
        if (!message.isEmpty())
            ctx.today.messages.addItem(alarm_event::messageRow(message, eventTime));
        // InputMessageWindow ties the message to the row that insertTodayRow left selected.
        if (ctx.newEvent.added && entry.askMessage && ctx.front.claimant == 0) {
            links.shadeTodayList();
            links.callOpenInputMessage(QString());
        }
    }
    ctx.tick.haveAlarms = ctx.today.alarms.count() >= 1;
    return result;
}

void addEntry(Context& ctx, EntryControls& controls, QString& playWord, const AlarmSetLinks& links) {
    EventEntry entry{ctx.entry.date, controls, ctx.entry.withMessage, QString(), true};
    addEvent(ctx, entry, playWord, links);
    controls = entry.controls;
}
