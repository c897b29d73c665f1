#include "eventlist/edit_event.h"

#include "alarmset/add_entry.h"
#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "eventlist/save_all_events.h"
#include "message/message_text.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "sound/notices.h"

namespace {

bool isAsciiDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool twoDigits(QStringView text, int& value) {
    if (text.size() != 2 || !isAsciiDigit(text[0]) || !isAsciiDigit(text[1]))
        return false;
    value = (text[0].unicode() - '0') * 10 + (text[1].unicode() - '0');
    return true;
}

void padToTwo(QString& text) {
    if (text.size() == 1)
        text.prepend(QLatin1Char('0'));
}

bool refuse(Context& ctx, const QString& words) {
    ctx.notices.answerOk(words);
    ctx.notices.beep();
    return false;
}

// Only a single highlighted row is surely the one being edited; with none or several, nothing goes.
void removeEditedRow(Context& ctx) {
    if (ctx.eventList.highlightedCount() == 1)
        ctx.eventList.removeFirstHighlighted();
}

} // namespace

EditControls editControlsFor(const QString& markField, const QString& dateField, const QString& timeField,
                             const QString& messageField) {
    EditControls c;
    static const QString marks = QStringLiteral("-=#~");
    const qsizetype markIndex = markField.size() == 1 ? marks.indexOf(markField.at(0)) : -1;
    c.playCountIndex = markIndex < 0 ? 0 : static_cast<int>(markIndex);
    c.dateEdit = dateField;
    c.hourBox = timeField.left(2);
    const long hour = leadingDigitsValue(c.hourBox);
    c.amPm = hour < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
    if (hour > 12)
        c.hourBox = QString::number(hour - 12);
    c.minuteBox = timeField.mid(3, 2);
    c.secondBox = timeField.right(2);
    c.input = messageField;
    return c;
}

bool editDateIsValid(const QString& dateEdit) {
    if (dateEdit.size() != 10)
        return false;
    if (dateEdit.indexOf(QLatin1Char('/')) != 4 || dateEdit.indexOf(QLatin1Char('/'), 5) != 7)
        return false;
    // Month and day must be numbers; a "/" or a pasted letter in them is refused like a bad value.
    int month = 0;
    int day = 0;
    if (!twoDigits(QStringView(dateEdit).mid(5, 2), month) || !twoDigits(QStringView(dateEdit).right(2), day))
        return false;
    return month > 0 && month < 13 && day > 0 && day < 32;
}

bool editDateKeyPasses(QChar key) {
    return isAsciiDigit(key) || key == QLatin1Char('/') || key.unicode() == 8;
}

bool confirmEdit(Context& ctx, EditControls& c) {
    if (!editDateIsValid(c.dateEdit))
        return refuse(ctx, QStringLiteral("Invalid input of date"));
    const QString badTime = QStringLiteral("Invalid input of alarm time");
    if (c.hourBox.isEmpty() || c.minuteBox.isEmpty() || c.secondBox.isEmpty())
        return refuse(ctx, badTime);
    const long hour = leadingDigitsValue(c.hourBox);
    if (hour > 12 || hour == 0 || leadingDigitsValue(c.minuteBox) > 59 || leadingDigitsValue(c.secondBox) > 59)
        return refuse(ctx, badTime);
    padToTwo(c.hourBox);
    padToTwo(c.minuteBox);
    padToTwo(c.secondBox);
    if (const QString why = message_text::unheldWarning(c.input); !why.isEmpty())
        return refuse(ctx, why);

    const QString newTime =
        twentyFourHour(c.hourBox, c.amPm) + QLatin1Char(':') + c.minuteBox + QLatin1Char(':') + c.secondBox;
    const QString playWord = alarm_event::playWords().value(c.playCountIndex);
    // The day of the check is that of the press, not of the opening.
    const QString today = ctx.clock.dateText();
    if (c.dateEdit > today) {
        removeEditedRow(ctx);
        const QChar mark = alarm_event::fromWholeWord(playWord).mark;
        ctx.eventList.insertRow(QString(mark), c.dateEdit + QLatin1Char('-') + newTime, c.input, true);
    } else if (c.dateEdit == today) {
        // The present second itself is still in time.
        if (ctx.clock.timeText() > newTime)
            return refuse(ctx, QStringLiteral("Time was passed or next day"));
        removeEditedRow(ctx);
        ctx.tick.on = true;
        insertTodayRow(ctx, newTime, playWord, true);
        if (!c.input.isEmpty())
            ctx.today.messages.addItem(alarm_event::messageRow(c.input, newTime));
        ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
    } else {
        return refuse(ctx, QStringLiteral("Day was passed"));
    }
    saveAllEvents(ctx);
    return true;
}
