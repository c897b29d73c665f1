#pragma once

#include <QString>

class Context;
struct Form4Links;

// The entry controls of the Alarm Set window as AddClick reads and writes them.
struct EntryControls {
    QString cbHour;
    QString cbMin;
    QString cbSec;
    int cbSecIndex = -1;
    QString txtAm;             // "AM" or "PM"
    int cbPlayTimesIndex = -1; // -1 while nothing was chosen
    QString cbPlayTimesText;   // the chosen item
};

// The hour field of the 24-hour time for the (padded) hour text of the 12-hour entry.
QString TwentyFourHour(const QString& hourText, const QString& amPm);

// Checks the entry, turns it into "hh:mm:ss" and sends the event to today's list or to the schedule.
// The padded texts go back into the controls; strTimesOfPlay keeps the last play word chosen.
void AddClick(Context& ctx, EntryControls& controls, QString& strTimesOfPlay, const Form4Links& links);
