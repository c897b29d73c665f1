#pragma once

#include <QString>

class Context;
struct AlarmSetLinks;

// The entry controls of the Alarm Set window as addEntry reads and writes them.
struct EntryControls {
    QString hourBox;
    QString minuteBox;
    QString secondBox;
    int secondIndex = -1;
    QString amPm;            // "AM" or "PM"
    int playCountIndex = -1; // -1 while nothing was chosen
    QString playCountText;   // the chosen item
};

// The hour field of the 24-hour time for the (padded) hour text of the 12-hour entry.
QString twentyFourHour(const QString& hourText, const QString& amPm);

// Checks the entry, turns it into "hh:mm:ss" and sends the event to today's list or to the schedule.
// The padded texts go back into the controls; playWord keeps the last play word chosen.
void addEntry(Context& ctx, EntryControls& controls, QString& playWord, const AlarmSetLinks& links);
