#pragma once

#include <QDateTime>

class Context;

// What the program knows beside the engine's state when it plans its next tick.
struct TickWatch {
    int reloadMinute = -1;        // the tick's mark of the 00:00 reload already done
    bool alarmSetShown = false;   // a shown window whose text tells the time
    bool recentlyChanged = false; // the engine's state changed a moment ago
    bool soundNeedsTick = false;  // a ringing wave is watched for a lost device
};

// When the next tick runs. Paced: every 800 ms, landing early on a duty's second when one is nearer. Asleep: one
// wake just ahead of the next duty, and never more than a minute without a look at the clock.
struct TickPlan {
    qint64 delayMs = 0;
    bool paced = false;
    bool readySound = false; // the next alarm is due within the lead: its sound may be opened and decoded now
};

namespace tick_planner {
constexpr qint64 kPaceMs = 800;
constexpr qint64 kLeadMs = 2000; // woken this long before a duty, then paced onto it
constexpr qint64 kLandMs = 5;    // a duty's tick lands this far into its second
constexpr qint64 kMaxSleepMs = 60000;

// The soonest moment at which one tick would do something the ticks before it did not; invalid when none is
// ahead. A duty that is already due is `now`.
QDateTime nextDuty(const Context& ctx, const QDateTime& now, int reloadMinute);

TickPlan plan(const Context& ctx, const QDateTime& now, const TickWatch& watch);
} // namespace tick_planner
