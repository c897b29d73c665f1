#pragma once

#include <QColor>
#include <QDate>
#include <QString>
#include <QStringList>

class Context;

// Either arrow button flips the half of the day; any other text stays.
void UpClick(QString& txtAm);
void DownClick(QString& txtAm);

// The minute and second boxes start with "00" to "09" and get the rest at their first drop-down.
void MinDropDown(QStringList& cbMinItems);
void SecDropDown(QStringList& cbSecItems);

// Key press in the hour, minute or second box: digits and backspace pass (true); any other
// character is dropped with the beep.
bool TimeBoxKeyPress(Context& ctx, QChar key);
// Key release: a text of 3 or more characters is wiped with the beep, so a third digit empties the box.
void TimeBoxKeyUp(Context& ctx, QString& text);

// lblDate as the calendar's click leaves it.
struct DateLabel {
    QString caption;
    QColor fore;
    QColor back;
};
// The day clicked becomes strAlarmDate; a day other than today swaps the label's laid-out colours.
void DateClick(Context& ctx, const QDate& day, const QColor& lngDateFore, const QColor& lngDateBack,
               DateLabel& lblDate);
