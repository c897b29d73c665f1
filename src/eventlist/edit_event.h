#pragma once

#include <QString>

class Context;

// The controls of the Edit window as opening and confirming an edit read and write them.
struct EditControls {
    QString dateEdit;
    QString hourBox;
    QString minuteBox;
    QString secondBox;
    QString amPm;
    int playCountIndex = 0;
    QString input; // line breaks as stored, CR LF
};

// The controls for one event of the list: the hour on the 12-hour clock, and "x" (and any odd mark) as once.
EditControls editControlsFor(const QString& markField, const QString& dateField, const QString& timeField,
                             const QString& messageField);

// The date as the edit accepts it: "yyyy/mm/dd" with month 1-12 and day 1-31; the year and the month's
// length are not looked at.
bool editDateIsValid(const QString& dateEdit);

// dateEdit key press: digits, "/" and backspace pass; anything else is dropped with the beep.
bool editDateKeyPasses(QChar key);

// Checks the controls and puts the event back by its new date: a later day goes into the event list,
// highlighted, in place of the one highlighted row; today goes into today's lists. Rewrites the schedule.
// A refusal is told to the user and leaves every event as it was; the padding of the time boxes stays.
// True when the edit was done and the window closes.
bool confirmEdit(Context& ctx, EditControls& controls);
