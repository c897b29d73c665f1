#include "alarmset/day_list_delete.h"
#include "engine/alarm_tick.h"
#include "engine/tick_planner.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

struct PlanCase {
    const char* name;
    QTime now;
    std::function<void(Context&)> setUp;
    TickWatch watch;
    bool paced;
    qint64 delayMs;
    bool readySound = false;
};

// The head of the queue taken, as after the tick that took it.
void waiting(Context& ctx, const QString& next, bool noSecond = false) {
    ctx.tick.on = ctx.tick.haveAlarms = true;
    ctx.tick.needNextAlarm = false;
    ctx.tick.nextAlarm = next;
    ctx.tick.nextPlayWord = "once";
    ctx.options.noSecond = noSecond;
}
// Nothing queued: the tick on, with or without the Alarm Set window wanted.
void tickOn(Context& ctx, bool windowWanted) {
    ctx.tick.on = true;
    ctx.tick.alarmSetWanted = windowWanted;
    ctx.tick.needNextAlarm = false;
}
void headToTake(Context& ctx) {
    waiting(ctx, "09:00:00");
    ctx.tick.needNextAlarm = true;
}
void disabledWithAlarm(Context& ctx) {
    waiting(ctx, "08:00:01");
    ctx.tick.on = false;
}

void chime(Context& ctx, int interval, int mark) {
    ctx.tick.on = ctx.tick.alarmSetWanted = true;
    ctx.tick.needNextAlarm = false;
    ctx.chime.on = true;
    ctx.chime.interval = int16_t(interval);
    ctx.chime.nextMark = int16_t(mark);
}

const auto nothing = [](Context&) {};
TickWatch reloaded(int minute) {
    TickWatch w;
    w.reloadMinute = minute;
    return w;
}

} // namespace

TEST(TickPlanner, SleepsUntilJustBeforeTheNextDutyAndPacesOntoItsSecond) {
    const PlanCase cases[] = {
        {"idle: a look a minute", QTime(8, 0), nothing, {}, false, 60000},
        {"idle: midnight reload ahead", QTime(23, 59, 30), nothing, {}, false, 28000},
        {"midnight within the lead", QTime(23, 59, 58, 500), nothing, {}, true, 800},
        {"lands 5 ms into 00:00:00", QTime(23, 59, 59, 700), nothing, {}, true, 305},
        {"00:00 not yet reloaded", QTime(0, 0, 20), nothing, reloaded(-1), true, 800},
        {"00:00 reloaded", QTime(0, 0, 20), nothing, reloaded(0), false, 60000},
        {"alarm in 10 s", QTime(8, 0), [](Context& c) { waiting(c, "08:00:10"); }, {}, false, 8000},
        {"alarm in 2 s: sound readied", QTime(8, 0), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 800, true},
        {"alarm in 0.5 s", QTime(8, 0, 1, 500), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 505, true},
        {"alarm this second", QTime(8, 0, 2, 805), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 800},
        {"alarm of 5 characters", QTime(8, 4, 50), [](Context& c) { waiting(c, "08:05"); }, {}, false, 8000},
        {"no-second alarm", QTime(8, 4, 50), [](Context& c) { waiting(c, "08:05:40", true); }, {}, false, 8000},
        {"no-second alarm's minute", QTime(8, 5, 40), [](Context& c) { waiting(c, "08:05:10", true); }, {}, true, 800},
        {"slipped, told at second 0", QTime(8, 0, 10), [](Context& c) { waiting(c, "07:58:00"); }, {}, false, 48000},
        {"missed its second", QTime(8, 0, 59, 500), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 505},
        {"23:59:59 held past midnight", QTime(0, 0, 30), [](Context& c) { waiting(c, "23:59:59"); }, reloaded(0), false,
         60000},
        {"clock set forward past it", QTime(8, 5), [](Context& c) { waiting(c, "08:00:10"); }, {}, false, 58000},
        {"clock set back an hour", QTime(7, 0, 5), [](Context& c) { waiting(c, "08:00:10"); }, {}, false, 60000},
        {"new head to take", QTime(8, 0), headToTake, {}, true, 800},
        {"queue empty: hide the window", QTime(8, 0), [](Context& c) { tickOn(c, false); }, {}, true, 800},
        {"wanted window, nothing due", QTime(8, 0), [](Context& c) { tickOn(c, true); }, {}, false, 60000},
        {"chime at :15", QTime(8, 14, 30), [](Context& c) { chime(c, 15, 15); }, {}, false, 28000},
        {"chime mark this minute", QTime(8, 15, 40), [](Context& c) { chime(c, 15, 15); }, {}, true, 800},
        {"hourly chime", QTime(8, 59, 50), [](Context& c) { chime(c, 60, 9); }, {}, false, 8000},
        {"overtaken mark resyncs at :30", QTime(8, 20, 10), [](Context& c) { chime(c, 15, 15); }, {}, false, 18000},
        {"mark 0 after :30 lies ahead", QTime(8, 40, 10), [](Context& c) { chime(c, 15, 0); }, {}, false, 60000},
        {"repeat sweep", QTime(8, 0), [](Context& c) { c.soundChoice.repeatSweep = true; }, {}, true, 800},
        {"ringing wave watched", QTime(8, 0), nothing, {-1, false, false, true}, true, 800},
        {"Alarm Set shown", QTime(8, 0), nothing, {-1, true, false, false}, true, 800},
        {"just changed", QTime(8, 0), nothing, {-1, false, true, false}, true, 800},
        {"disabled tick ignores alarms", QTime(8, 0), disabledWithAlarm, {}, false, 60000},
    };
    for (const PlanCase& c : cases) {
        EngineFixture f;
        c.setUp(f.ctx);
        const TickPlan plan = tick_planner::plan(f.ctx, QDateTime(QDate(2002, 5, 1), c.now), c.watch);
        EXPECT_EQ(plan.paced, c.paced) << c.name;
        EXPECT_EQ(plan.delayMs, c.delayMs) << c.name;
        EXPECT_EQ(plan.readySound, c.readySound) << c.name;
    }
}

namespace {

// One program's tick, driven either at the old fixed 800 ms or by the planner; records what happened and when.
struct DrivenTick : EngineFixture {
    AlarmTick tick{ctx};
    QStringList log;
    int wakes = 0;

    void tickOnce() {
        const qsizetype played = sound.played.size(), windows = notices.alarmWindows.size(), waves = sound.waves.size();
        tick.onTick();
        ++wakes;
        const QString at = clock.timeText() + ' ';
        auto entry = [&](const QString& what) { return at + QString(what).remove(ctx.folder); };
        for (qsizetype i = played; i < sound.played.size(); ++i)
            log.append(entry(sound.played[i]));
        for (qsizetype i = windows; i < notices.alarmWindows.size(); ++i)
            log.append(entry(notices.alarmWindows[i]));
        for (qsizetype i = waves; i < sound.waves.size(); ++i)
            log.append(entry(sound.waves[i]));
    }
    void run(const QDateTime& end, bool planned) {
        while (clock.now() < end) {
            tickOnce();
            TickWatch watch;
            watch.reloadMinute = tick.reloadMinute();
            clock.advanceMs(planned ? tick_planner::plan(ctx, clock.now(), watch).delayMs : 800);
        }
    }
};

} // namespace

TEST(TickPlanner, PlannedTicksDoWhatThe800msTickDidInTheSameSecondsWithAFractionOfTheWakes) {
    const QByteArray schedule = quotedRecord("tea2002/05/01once23:58:30") +  // fires
                                quotedRecord("2002/05/01twic23:59:11") +     // two rows of one second in which
                                quotedRecord("2002/05/01thri23:59:11") +     // the 800 ms tick runs twice
                                quotedRecord("late2002/05/01once23:59:59") + // the last second of the day
                                quotedRecord("2002/05/02once00:00:30") +     // taken by the 00:00 reload
                                quotedRecord("night2002/05/02twic00:03:07"); //
    DrivenTick every800, planned;
    for (DrivenTick* run : {&every800, &planned}) {
        run->writeFile("future.dat", schedule);
        run->clock.set(2002, 5, 1, 23, 57, 30, 400);
        run->ctx.touchAlarmSet();
        run->ctx.tick.alarmSetWanted = true;
        run->ctx.today.alarms.addItem("once 23:57:40", 0); // missed while the tick was disabled
        run->ctx.tick.on = run->ctx.tick.haveAlarms = run->ctx.tick.needNextAlarm = true;
        run->clock.set(2002, 5, 1, 23, 57, 45, 400);
        run->ctx.chime.on = true;
        run->ctx.chime.interval = 2;
        run->ctx.chime.nextMark = 0;
    }
    const QDateTime end(QDate(2002, 5, 2), QTime(0, 5));
    every800.run(end, false);
    planned.run(end, true);
    EXPECT_EQ(planned.log, every800.log);
    EXPECT_GE(every800.log.size(), 8);
    EXPECT_LT(planned.wakes * 4, every800.wakes);
}
