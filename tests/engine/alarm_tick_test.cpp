#include "alarmset/day_list_delete.h"
#include "engine/alarm_tick.h"
#include "engine/schedule_file.h"
#include "engine/tick_planner.h"
#include "fakes.h"

#include <functional>
#include <gtest/gtest.h>

namespace {
struct AlarmTickTest : ::testing::Test, EngineFixture {
    AlarmTick tick{ctx};
    AlarmTickTest() { clock.set(2002, 5, 1, 8, 0, 0); }

    void runUntil(int h, int m, int s) {
        const QDateTime end(clock.now().date(), QTime(h, m, s));
        while (clock.now() < end) {
            tick.onTick();
            clock.advanceMs(800);
        }
    }
    // Today's rows, armed as after an Add.
    void arm(const QString& time, const QStringList& words) {
        ctx.touchAlarmSet();
        for (const QString& word : words)
            insertTodayRow(ctx, time, word, true);
        ctx.tick.haveAlarms = ctx.tick.on = true;
    }
    QString played(const QString& word) const { return word + '|' + ctx.soundChoice.songPath; }
};

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
            const TickWatch watch{tick.reloadMinute()};
            clock.advanceMs(planned ? tick_planner::plan(ctx, clock.now(), watch).delayMs : 800);
        }
    }
};

} // namespace

TEST_F(AlarmTickTest, FiresTodaysAlarmFromTheScheduleAtItsDueSecond) {
    writeFile("future.dat",
              quotedRecord("Take the cake out2002/05/01twic08:00:05") + quotedRecord("2002/05/01once08:00:09"));
    ctx.touchAlarmSet();
    ASSERT_EQ(ctx.today.alarms.count(), 2);
    QStringList order;
    sound.order = notices.order = &order;

    runUntil(8, 0, 4);
    EXPECT_TRUE(sound.played.isEmpty());
    runUntil(8, 0, 6);
    EXPECT_EQ(sound.played, QStringList({played("twice")}));
    EXPECT_EQ(notices.alarmWindows, QStringList({"Take the cake out at 08:00:05"}));
    EXPECT_EQ(order, QStringList({"sound", "window"})); // the sound starts before the window stands
    EXPECT_TRUE(ctx.today.messages.isEmpty());

    runUntil(8, 0, 10);
    EXPECT_EQ(sound.played, QStringList({played("twice"), played("once")}));
    EXPECT_EQ(notices.alarmWindows.size(), 1); // no message for the second event

    // Queue empty and nobody wants the window: the tick falls idle.
    runUntil(8, 0, 12);
    EXPECT_EQ(std::tuple(ctx.tick.haveAlarms, ctx.tick.on, ctx.tick.nextAlarm), std::tuple(false, false, ""));
}

TEST_F(AlarmTickTest, SecondRowMissingItsSecondIsReportedSilentlyAtSecondZero) {
    arm("08:00:02", {"once", "twice"});
    ctx.today.messages.addItem("second one at 08:00:02");
    ctx.tick.alarmSetWanted = true;
    clock.set(2002, 5, 1, 8, 0, 1, 700); // only one tick falls in second 2
    tick.onTick();
    clock.advanceMs(800);
    tick.onTick();
    clock.advanceMs(800);
    EXPECT_EQ(sound.played.size(), 1);
    runUntil(8, 0, 59);
    EXPECT_EQ(std::tuple(sound.played.size(), ctx.today.alarms.count()), std::tuple(1, 1));
    runUntil(8, 1, 1);
    EXPECT_EQ(sound.played.size(), 1);
    EXPECT_EQ(notices.alarmWindows, QStringList({"second one at 08:00:02", "alarm at 08:00:02"}));
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
}

TEST_F(AlarmTickTest, BackFromNoSecondModeAFiveCharacterNextAlarmGetsItsSeconds) {
    arm("09:00:00", {"once"});
    ctx.tick.needNextAlarm = false; // the head taken while seconds were off
    ctx.tick.nextAlarm = "09:00";
    tick.onTick();
    EXPECT_EQ(ctx.tick.nextAlarm, "09:00:00");
}

TEST_F(AlarmTickTest, AnAlarmAt235959HeldPastMidnightWaitsForTheNextDay) {
    clock.set(2002, 5, 1, 23, 59, 58);
    arm("23:59:59", {"once"});
    tick.onTick(); // takes the head
    EXPECT_EQ(ctx.tick.nextAlarm, "23:59:59");
    clock.set(2002, 5, 2, 0, 0, 0); // the tick was held up
    tick.onTick();
    EXPECT_EQ(std::tuple(sound.played, notices.alarmWindows, ctx.today.alarms.count()),
              std::tuple(QStringList(), QStringList(), 1));
}

TEST_F(AlarmTickTest, MidnightReloadArmsTheNewDayOnceAndFirstTouchReadsOnlyOnce) {
    writeFile("future.dat", quotedRecord("2002/05/02once00:00:00") + quotedRecord("2002/05/02twic00:00:30") +
                                quotedRecord("2002/05/02once07:00:00"));
    clock.set(2002, 5, 1, 23, 59, 59);
    tick.onTick();
    EXPECT_FALSE(ctx.alarmSetLoaded());
    clock.set(2002, 5, 2, 0, 0, 0, 300);
    tick.onTick();
    ASSERT_TRUE(ctx.alarmSetLoaded());
    // 00:00:00 is not later than the reload's now; the others are armed, each once.
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"twice 00:00:30", "once 07:00:00"}));
    EXPECT_EQ(tick.reloadMinute(), 0);
    runUntil(0, 0, 31);
    EXPECT_EQ(std::tuple(sound.played, ctx.today.alarms.count()), std::tuple(QStringList({played("twice")}), 1));
    runUntil(0, 1, 1);
    EXPECT_EQ(tick.reloadMinute(), -1);

    // A second midnight with the window already loaded reads the file again.
    writeFile("future.dat", quotedRecord("2002/05/03once00:30:00"));
    clock.set(2002, 5, 3, 0, 0, 1);
    tick.onTick();
    tick.onTick();
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 00:30:00", "once 07:00:00"}));
}

TEST_F(AlarmTickTest, RepeatSweepRunsEvenWhenIdleAndDisabledTickDoesNothing) {
    ctx.soundChoice.repeatSweep = true;
    tick.onTick();
    tick.onTick();
    EXPECT_EQ(std::tuple(sound.sweeps, ctx.alarmSetLoaded()), std::tuple(2, false));
}

TEST_F(AlarmTickTest, ChimeRingsAtItsMarksAndResyncsAnOvertakenMark) {
    ctx.touchAlarmSet();
    ctx.tick.alarmSetWanted = true;
    ctx.chime.controls = {true, "15", true};
    clock.set(2002, 5, 1, 8, 10, 0);
    updateChime(ctx);
    EXPECT_EQ(std::tuple(ctx.tick.on, ctx.chime.on, ctx.chime.nextMark), std::tuple(true, true, 15));
    runUntil(8, 15, 5);
    EXPECT_EQ(std::tuple(sound.waves, ctx.chime.nextMark), std::tuple(QStringList({ctx.folder + "didi.snd"}), 30));

    // The clock jumps (a suspend): at second 30 the mark is worked out anew.
    clock.set(2002, 5, 1, 8, 47, 29, 900);
    tick.onTick();
    EXPECT_EQ(ctx.chime.nextMark, 30);
    clock.set(2002, 5, 1, 8, 47, 30, 500);
    tick.onTick();
    EXPECT_EQ(ctx.chime.nextMark, 0);
    runUntil(9, 0, 2);
    EXPECT_EQ(sound.waves.size(), 2);

    // Hourly: a mark of 0 at hour 23 is not stepped.
    ctx.chime.interval = 60;
    ctx.chime.nextMark = 0;
    clock.set(2002, 5, 1, 23, 5, 30);
    tick.resyncChimeMark();
    EXPECT_EQ(ctx.chime.nextMark, 0);
    ctx.chime.nextMark = 20;
    tick.resyncChimeMark();
    EXPECT_EQ(ctx.chime.nextMark, 21);
}

TEST_F(AlarmTickTest, DeleteAllEmptiesTheDayButNotTheScheduleAndNothingRings) {
    writeFile("future.dat", quotedRecord("Tea2002/05/01once08:00:03") + quotedRecord("2002/05/09once09:00:00"));
    ctx.touchAlarmSet();
    ASSERT_EQ(ctx.today.alarms.count(), 1);
    const QByteArray before = readFile("future.dat");
    runUntil(8, 0, 1);
    ASSERT_FALSE(ctx.tick.nextAlarm.isEmpty());

    deleteAllToday(ctx);
    EXPECT_EQ(std::tuple(ctx.today.alarms.count(), ctx.today.messages.isEmpty()), std::tuple(0, true));
    runUntil(8, 0, 6);
    EXPECT_EQ(std::tuple(sound.played, notices.alarmWindows, ctx.tick.nextAlarm),
              std::tuple(QStringList(), QStringList(), ""));
    // The schedule and the event list stay as they were.
    EXPECT_EQ(std::tuple(readFile("future.dat"), ctx.eventList.rows.count()), std::tuple(before, 2));
}

TEST(TickPlanner, SleepsUntilJustBeforeTheNextDutyAndPacesOntoItsSecond) {
    const PlanCase cases[] = {
        {"idle: a look a minute", QTime(8, 0), nothing, {}, false, 60000},
        {"idle: midnight reload ahead", QTime(23, 59, 30), nothing, {}, false, 28000},
        {"midnight within the lead", QTime(23, 59, 58, 500), nothing, {}, true, 800},
        {"lands 5 ms into 00:00:00", QTime(23, 59, 59, 700), nothing, {}, true, 305},
        {"00:00 not yet reloaded", QTime(0, 0, 20), nothing, {-1}, true, 800},
        {"00:00 reloaded", QTime(0, 0, 20), nothing, {0}, false, 60000},
        {"alarm in 10 s", QTime(8, 0), [](Context& c) { waiting(c, "08:00:10"); }, {}, false, 8000},
        {"alarm in 2 s: sound readied", QTime(8, 0), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 800, true},
        {"alarm in 0.5 s", QTime(8, 0, 1, 500), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 505, true},
        {"alarm this second", QTime(8, 0, 2, 805), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 800},
        {"alarm of 5 characters", QTime(8, 4, 50), [](Context& c) { waiting(c, "08:05"); }, {}, false, 8000},
        {"no-second alarm", QTime(8, 4, 50), [](Context& c) { waiting(c, "08:05:40", true); }, {}, false, 8000},
        {"no-second alarm's minute", QTime(8, 5, 40), [](Context& c) { waiting(c, "08:05:10", true); }, {}, true, 800},
        {"slipped, told at second 0", QTime(8, 0, 10), [](Context& c) { waiting(c, "07:58:00"); }, {}, false, 48000},
        {"missed its second", QTime(8, 0, 59, 500), [](Context& c) { waiting(c, "08:00:02"); }, {}, true, 505},
        {"23:59:59 held past midnight", QTime(0, 0, 30), [](Context& c) { waiting(c, "23:59:59"); }, {0}, false, 60000},
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
