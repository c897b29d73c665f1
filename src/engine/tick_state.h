#pragma once

#include "engine/event_checker.h"

#include <QString>

#include <cstdint>

// The tick's book of the alarm it waits for. The tick keeps it; adding, editing and deleting events raise
// its flags so the tick reads row 0 of today's alarms again.
struct TickState {
    QString nextAlarm;    // time of the alarm waited for
    QString nextPlayWord; // its whole play word
    bool on = false;      // the tick compares and keeps book
    bool needNextAlarm = false;
    bool haveAlarms = false;     // today's alarms hold a row
    bool alarmSetWanted = false; // the tick must not hide the Alarm Set window
};

// The every-N-minutes chime: its marks, and its check box and interval box as the Alarm Set window shows them.
struct ChimeState {
    bool on = false;
    int16_t interval = 0; // minutes; 60 means hourly
    int16_t nextMark = 0; // the minute (the hour when hourly) of the next ring
    EventChecker::ChimeControls controls;
};
