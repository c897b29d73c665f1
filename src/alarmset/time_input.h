#pragma once

#include <QColor>
#include <QDate>
#include <QString>
#include <QStringList>

class Context;

// Either arrow button flips the half of the day; any other text stays.
void flipHalfDayUp(QString& amPm);
void flipHalfDayDown(QString& amPm);

// The minute and second boxes start with "00" to "09" and get the rest at their first drop-down.
void fillMinutes(QStringList& minuteItems);
void fillSeconds(QStringList& secondItems);

// Key press in the hour, minute or second box: digits and backspace pass (true); any other
// character is dropped with the beep.
bool timeBoxKeyPasses(Context& ctx, QChar key);
// Key release: a text of 3 or more characters is wiped with the beep, so a third digit empties the box.
void timeBoxKeyReleased(Context& ctx, QString& text);

// dateLabel as the calendar's click leaves it.
struct DateLabel {
    QString caption;
    QColor fore;
    QColor back;
};
// The day clicked becomes alarmDate; a day other than today swaps the label's laid-out colours.
void pickDate(Context& ctx, const QDate& day, const QColor& dateFore, const QColor& dateBack, DateLabel& dateLabel);
