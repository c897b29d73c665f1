#pragma once

// What the engine asks of the Alarm Set window when there is one on screen.
class AlarmSetUi {
public:
    virtual ~AlarmSetUi() = default;
    // Builds the window; its load reads the settings and the schedule.
    virtual void load() = 0;
    // A request to unload, which the window turns into hiding itself.
    virtual void requestUnload() = 0;
    // The chime's controls changed in the engine (interval box enabled or not).
    virtual void chimeControlsChanged() = 0;
    // No-second mode hides the seconds box and its colon; the other mode shows them.
    virtual void setNoSecondMode(bool on) = 0;
    // todayList hides under the hourglass while the message or delete window works on its current row (true),
    // and comes back when that window closes (false).
    virtual void setTodayListShaded(bool shaded) { (void)shaded; }
};
