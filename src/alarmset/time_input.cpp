#include "alarmset/time_input.h"

#include "engine/context.h"
#include "platform/clock.h"
#include "sound/notices.h"

namespace {

void flipHalfOfDay(QString& amPm) {
    if (amPm == QLatin1String("AM"))
        amPm = QStringLiteral("PM");
    else if (amPm == QLatin1String("PM"))
        amPm = QStringLiteral("AM");
}

// The test on exactly 10 items keeps the list from growing at later drop-downs.
void completeSixty(QStringList& items) {
    if (items.size() != 10)
        return;
    for (int n = 10; n <= 59; ++n)
        items.append(QString::number(n));
}

constexpr char16_t kBackspace = 8;

} // namespace

void flipHalfDayUp(QString& amPm) {
    flipHalfOfDay(amPm);
}

void flipHalfDayDown(QString& amPm) {
    flipHalfOfDay(amPm);
}

void fillMinutes(QStringList& minuteItems) {
    completeSixty(minuteItems);
}

void fillSeconds(QStringList& secondItems) {
    completeSixty(secondItems);
}

bool timeBoxKeyPasses(Context& ctx, QChar key) {
    if ((key >= QLatin1Char('0') && key <= QLatin1Char('9')) || key.unicode() == kBackspace)
        return true;
    ctx.notices.beep();
    return false;
}

void timeBoxKeyReleased(Context& ctx, QString& text) {
    if (text.size() < 3)
        return;
    text.clear();
    ctx.notices.beep();
}

void pickDate(Context& ctx, const QDate& day, const QColor& dateFore, const QColor& dateBack, DateLabel& dateLabel) {
    ctx.entry.date = dateText(QDateTime(day, QTime(0, 0)));
    if (ctx.entry.date == ctx.clock.dateText()) {
        dateLabel.fore = dateFore;
        dateLabel.back = dateBack;
    } else {
        dateLabel.fore = dateBack;
        dateLabel.back = dateFore;
    }
    dateLabel.caption = ctx.entry.date;
}
