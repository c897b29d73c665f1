#include "eventlist/edit_event.h"

#include "alarmset/add_click.h"
#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "eventlist/save_all_events.h"
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
    ctx.notices.AnswerOk(words);
    ctx.notices.Beep();
    return false;
}

// Only a single highlighted row is surely the one being edited; with none or several, nothing goes.
void removeEditedRow(Context& ctx) {
    if (ctx.Bwklistbox1.MultiSelectedItem() == 1)
        ctx.Bwklistbox1.MultiDelete();
}

} // namespace

const QStringList& EditPlayWords() {
    static const QStringList words = {QStringLiteral("once"), QStringLiteral("twice"), QStringLiteral("thrice"),
                                      QStringLiteral("repeat")};
    return words;
}

EditControls ShowEditEvent(const QString& strPlayTimesIs, const QString& strDateIs, const QString& strTimeIs,
                           const QString& strMessageIs) {
    EditControls c;
    static const QString marks = QStringLiteral("-=#~");
    const qsizetype markIndex = strPlayTimesIs.size() == 1 ? marks.indexOf(strPlayTimesIs.at(0)) : -1;
    c.cbPlayTimesIndex = markIndex < 0 ? 0 : static_cast<int>(markIndex);
    c.txtDate = strDateIs;
    c.cbHour = strTimeIs.left(2);
    const long hour = leadingDigitsValue(c.cbHour);
    c.txtAm = hour < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
    if (hour > 12)
        c.cbHour = QString::number(hour - 12);
    c.cbMin = strTimeIs.mid(3, 2);
    c.cbSec = strTimeIs.right(2);
    c.txtInput = strMessageIs;
    return c;
}

bool EditDateIsValid(const QString& txtDate) {
    if (txtDate.size() != 10)
        return false;
    if (txtDate.indexOf(QLatin1Char('/')) != 4 || txtDate.indexOf(QLatin1Char('/'), 5) != 7)
        return false;
    // Month and day must be numbers; a "/" or a pasted letter in them is refused like a bad value.
    int month = 0;
    int day = 0;
    if (!twoDigits(QStringView(txtDate).mid(5, 2), month) || !twoDigits(QStringView(txtDate).right(2), day))
        return false;
    return month > 0 && month < 13 && day > 0 && day < 32;
}

bool EditDateKeyPasses(QChar key) {
    return isAsciiDigit(key) || key == QLatin1Char('/') || key.unicode() == 8;
}

bool ConfirmEditEvent(Context& ctx, EditControls& c) {
    if (!EditDateIsValid(c.txtDate))
        return refuse(ctx, QStringLiteral("Invalid input of date"));
    const QString badTime = QStringLiteral("Invalid input of alarm time");
    if (c.cbHour.isEmpty() || c.cbMin.isEmpty() || c.cbSec.isEmpty())
        return refuse(ctx, badTime);
    const long hour = leadingDigitsValue(c.cbHour);
    if (hour > 12 || hour == 0 || leadingDigitsValue(c.cbMin) > 59 || leadingDigitsValue(c.cbSec) > 59)
        return refuse(ctx, badTime);
    padToTwo(c.cbHour);
    padToTwo(c.cbMin);
    padToTwo(c.cbSec);

    const QString newTime = TwentyFourHour(c.cbHour, c.txtAm) + QLatin1Char(':') + c.cbMin + QLatin1Char(':') + c.cbSec;
    const QString playWord = EditPlayWords().value(c.cbPlayTimesIndex);
    // The day of the check is that of the press, not of the opening.
    const QString today = ctx.clock.dateText();
    if (c.txtDate > today) {
        removeEditedRow(ctx);
        const QChar mark = alarm_event::fromWholeWord(playWord).mark;
        ctx.Bwklistbox1.ShowData(QString(mark), c.txtDate + QLatin1Char('-') + newTime, c.txtInput, true);
    } else if (c.txtDate == today) {
        // The present second itself is still in time.
        if (ctx.clock.timeText() > newTime)
            return refuse(ctx, QStringLiteral("Time was passed or next day"));
        removeEditedRow(ctx);
        ctx.m.blnTickOn = true;
        Sorting(ctx, newTime, playWord, true);
        if (!c.txtInput.isEmpty())
            ctx.lstMessage.addItem(alarm_event::messageRow(c.txtInput, newTime));
        ctx.m.blnHaveAlarms = ctx.lstData.count() > 0;
    } else {
        return refuse(ctx, QStringLiteral("Day was passed"));
    }
    SaveAllEvents(ctx);
    return true;
}
