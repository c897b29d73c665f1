#pragma once

#include <QString>
#include <cstdint>

class Context;
class ListModel;

// What the load of the Alarm Set window takes from the clock and from tolm.ini.
struct AlarmSetLoadResult {
    QString amPm;              // half of the day of the present time
    bool havePosition = false; // record 1 was found
    int32_t top = 0;           // twips
    int32_t left = 0;          // twips
};

// Records 1, 3 and 4: the window's place, the song in use, and the sound and error boxes of SettingsWindow.
void loadAlarmSetSettings(Context& ctx, AlarmSetLoadResult& result);

// Stores the window's place as record 1; the window stays wanted while today's list holds a row.
void storeAlarmSetPlace(Context& ctx, double topTwips, double leftTwips, const ListModel& todayList);

// The font of record 8 for the Alarm Set window's twelve text controls.
struct ControlFont {
    QString family;    // empty: as laid out
    int pointSize = 0; // 0: as laid out
};
ControlFont alarmSetControlFont(Context& ctx);

// The load steps of the Alarm Set window that need no widget: its settings, then the schedule.
void loadAlarmSetData(Context& ctx);
