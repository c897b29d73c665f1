#include "alarmset/time_input.h"

#include "engine/context.h"
#include "platform/clock.h"
#include "sound/notices.h"

namespace {

void flipHalfOfDay(QString& txtAm) {
    if (txtAm == QLatin1String("AM"))
        txtAm = QStringLiteral("PM");
    else if (txtAm == QLatin1String("PM"))
        txtAm = QStringLiteral("AM");
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

void UpClick(QString& txtAm) {
    flipHalfOfDay(txtAm);
}

void DownClick(QString& txtAm) {
    flipHalfOfDay(txtAm);
}

void MinDropDown(QStringList& cbMinItems) {
    completeSixty(cbMinItems);
}

void SecDropDown(QStringList& cbSecItems) {
    completeSixty(cbSecItems);
}

bool TimeBoxKeyPress(Context& ctx, QChar key) {
    if ((key >= QLatin1Char('0') && key <= QLatin1Char('9')) || key.unicode() == kBackspace)
        return true;
    ctx.notices.Beep();
    return false;
}

void TimeBoxKeyUp(Context& ctx, QString& text) {
    if (text.size() < 3)
        return;
    text.clear();
    ctx.notices.Beep();
}

void DateClick(Context& ctx, const QDate& day, const QColor& lngDateFore, const QColor& lngDateBack,
               DateLabel& lblDate) {
    ctx.m.strAlarmDate = dateText(QDateTime(day, QTime(0, 0)));
    if (ctx.m.strAlarmDate == ctx.clock.dateText()) {
        lblDate.fore = lngDateFore;
        lblDate.back = lngDateBack;
    } else {
        lblDate.fore = lngDateBack;
        lblDate.back = lngDateFore;
    }
    lblDate.caption = ctx.m.strAlarmDate;
}
