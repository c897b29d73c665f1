#pragma once

#include "engine/day_lists.h"
#include "engine/entry_state.h"
#include "engine/front_state.h"
#include "engine/tick_state.h"
#include "eventlist/event_list.h"
#include "recurring/recurring_day.h"
#include "settings/options.h"
#include "settings/setting_record.h"
#include "settings/settings_state.h"
#include "sound/sound_choice.h"

#include <functional>

class AlarmSound;
class AlarmSetUi;
class Clock;
class Notices;
class WakeAlarm;

// Everything the alarm engine works on: the program's state, grouped by the part that keeps it, and the
// services it calls. Windows hold a reference to it; tests build one over fakes.
class Context {
public:
    Context(Clock& clock, Notices& notices, AlarmSound& sound);

    Clock& clock;
    Notices& notices;
    AlarmSound& sound;

    QString folder; // the program folder, with a trailing '/'
    // The one buffer every reader and writer of the settings file goes through.
    SettingRecord recordBuffer;
    Options options;
    SettingsState settings;
    SoundChoice soundChoice;
    TickState tick;
    ChimeState chime;
    FrontState front;
    EntryState entry;
    NewEvent newEvent;
    // Today's lists live with the Alarm Set window: touch it through touchAlarmSet() first.
    DayLists today;
    // Every event of the schedule file, soonest first.
    EventList eventList;
    // Which occurrences of recurring alarms today's lists hold.
    RecurringDay recurring;

    // The Alarm Set window as the engine sees it; set by whoever builds the program (or the test).
    AlarmSetUi* alarmSetUi = nullptr;
    // Keeps the computer's wake-up on the next alarm; none in tests that do not look at it.
    WakeAlarm* wake = nullptr;
    // Stops and starts the 800 ms timer of the tick (while a system-modal box is up).
    std::function<void(bool)> setTickTimerEnabled = [](bool) {};

    // The values in force when the program starts, over this program folder.
    void setStartValues(const QString& programFolder);
    // Loads the Alarm Set window the first time anything touches it; true when this touch loaded it.
    bool touchAlarmSet();
    bool alarmSetLoaded() const { return m_alarmSetLoaded; }
    // The window asks to go; it only hides.
    void unloadAlarmSet();
    void dropNewEvent() { newEvent = NewEvent(); }

    QString appFile(const QString& name) const { return folder + name; }

private:
    bool m_alarmSetLoaded = false;
};
