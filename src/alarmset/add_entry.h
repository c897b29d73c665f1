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

// One event as the Add takes it: the window's controls and its date, and how its message comes.
struct EventEntry {
    QString date; // "yyyy/mm/dd"
    EntryControls controls;
    // The window's With Message: the Input Message window asks for the text after the add.
    bool askMessage = false;
    // A message that comes with the entry (from another process): checked and stored with the event, no window
    // asked. Empty: none.
    QString message;
    // The window highlights the new row of the event list; an add from elsewhere leaves the user's highlight.
    bool highlightInList = true;
};

enum class AddResult {
    Refused,      // a warning went through Notices; nothing was stored
    Today,        // into today's list, armed
    Schedule,     // appended to the schedule
    MessageAsked, // another day: the Input Message window stores it when the user saves
};

// Checks the entry, turns it into "hh:mm:ss" and sends the event to today's list or to the schedule. The window
// and the command channel both add through here. The padded texts go back into the controls; playWord keeps the
// last play word chosen. A message longer than the message box takes, or with characters the files cannot
// hold, is refused before anything else.
AddResult addEvent(Context& ctx, EventEntry& entry, QString& playWord, const AlarmSetLinks& links);

// The window's Add: addEvent with the window's date and its With Message state.
void addEntry(Context& ctx, EntryControls& controls, QString& playWord, const AlarmSetLinks& links);
