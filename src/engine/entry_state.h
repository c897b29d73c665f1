#pragma once

#include <QString>

// The event being entered on the Alarm Set window: its date, whether it goes through the Input Message
// window, and the play word last chosen.
struct EntryState {
    QString date;
    bool withMessage = false;
    QString lastPlayWord;
};

// The event being added, as the entry checks leave it; dropped after each add.
struct NewEvent {
    QString time;
    QString playWord;
    QString mark;
    bool lineValid = false;
    bool added = false;
};
