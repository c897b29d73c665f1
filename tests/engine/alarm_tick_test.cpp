#include "alarmset/day_list_delete.h"
#include "engine/alarm_tick.h"
#include "engine/schedule_file.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct AlarmTickTest : ::testing::Test, EngineFixture {
    AlarmTick tick{ctx};
    AlarmTickTest() { clock.set(2002, 5, 1, 8, 0, 0); }

    // Runs the 800 ms timer until the clock reaches the given time of the same day.
    void runUntil(int h, int m, int s) {
        const QDateTime end(clock.now().date(), QTime(h, m, s));
        while (clock.now() < end) {
            tick.onTick();
            clock.advanceMs(800);
        }
    }
    QString played(const QString& word) const { return word + '|' + ctx.soundChoice.songPath; }
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
    EXPECT_EQ(sound.played.size(), 2);
    EXPECT_EQ(sound.played.last(), played("once"));
    EXPECT_EQ(notices.alarmWindows.size(), 1); // no message for the second event

    // Queue empty and nobody wants the window: the tick falls idle.
    runUntil(8, 0, 12);
    EXPECT_FALSE(ctx.tick.haveAlarms);
    EXPECT_FALSE(ctx.tick.on);
    EXPECT_TRUE(ctx.tick.nextAlarm.isEmpty());
}

TEST_F(AlarmTickTest, TwoRowsOfOneTimeFireOnSuccessiveTicksOfThatSecond) {
    ctx.touchAlarmSet();
    insertTodayRow(ctx, "08:00:02", "once", true);
    insertTodayRow(ctx, "08:00:02", "thrice", true);
    ctx.tick.haveAlarms = ctx.tick.on = true;
    // Ticks at .0 and .8 of second 2 (800 ms pace from 08:00:00.400).
    clock.set(2002, 5, 1, 8, 0, 0, 400);
    runUntil(8, 0, 3);
    EXPECT_EQ(sound.played, QStringList({played("thrice"), played("once")}));
}

TEST_F(AlarmTickTest, SecondRowMissingItsSecondIsReportedSilentlyAtSecondZero) {
    ctx.touchAlarmSet();
    insertTodayRow(ctx, "08:00:02", "once", true);
    insertTodayRow(ctx, "08:00:02", "twice", true);
    ctx.today.messages.addItem("second one at 08:00:02");
    ctx.tick.haveAlarms = ctx.tick.on = true;
    ctx.tick.alarmSetWanted = true;
    clock.set(2002, 5, 1, 8, 0, 1, 700); // only one tick falls in second 2
    tick.onTick();
    clock.advanceMs(800);
    tick.onTick();
    clock.advanceMs(800);
    EXPECT_EQ(sound.played.size(), 1);
    runUntil(8, 0, 59);
    EXPECT_EQ(sound.played.size(), 1);
    EXPECT_EQ(ctx.today.alarms.count(), 1);
    runUntil(8, 1, 1);
    EXPECT_EQ(sound.played.size(), 1);
    EXPECT_EQ(notices.alarmWindows, QStringList({"second one at 08:00:02", "alarm at 08:00:02"}));
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
}

TEST_F(AlarmTickTest, NoSecondModeComparesMinutesOnly) {
    ctx.touchAlarmSet();
    ctx.options.noSecond = true;
    insertTodayRow(ctx, "08:01:00", "once", true);
    insertTodayRow(ctx, "08:01:00", "twice", true);
    ctx.today.messages.addItem("both at 08:01:00");
    ctx.tick.haveAlarms = ctx.tick.on = true;
    runUntil(8, 0, 59);
    EXPECT_TRUE(sound.played.isEmpty());
    runUntil(8, 1, 2);
    EXPECT_EQ(sound.played, QStringList({played("twice"), played("once")}));
    EXPECT_EQ(notices.alarmWindows, QStringList({"both at 08:01:00"}));
    // Back to seconds: a 5-character next alarm gets ":00".
    ctx.tick.nextAlarm = "09:00";
    ctx.options.noSecond = false;
    ctx.tick.alarmSetWanted = true;
    ctx.tick.on = true;
    tick.onTick();
    EXPECT_EQ(ctx.tick.nextAlarm, "09:00:00");
}

TEST_F(AlarmTickTest, AnAlarmAt235959HeldPastMidnightWaitsForTheNextDay) {
    clock.set(2002, 5, 1, 23, 59, 58);
    ctx.touchAlarmSet();
    insertTodayRow(ctx, "23:59:59", "once", true);
    ctx.tick.haveAlarms = ctx.tick.on = true;
    tick.onTick(); // takes the head
    EXPECT_EQ(ctx.tick.nextAlarm, "23:59:59");
    clock.set(2002, 5, 2, 0, 0, 0); // the tick was held up
    tick.onTick();
    EXPECT_TRUE(sound.played.isEmpty());
    EXPECT_TRUE(notices.alarmWindows.isEmpty());
    EXPECT_EQ(ctx.today.alarms.count(), 1);
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
    EXPECT_EQ(sound.played, QStringList({played("twice")}));
    EXPECT_EQ(ctx.today.alarms.count(), 1);
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
    EXPECT_EQ(sound.sweeps, 2);
    EXPECT_FALSE(ctx.alarmSetLoaded());
}

TEST_F(AlarmTickTest, ChimeRingsAtItsMarksAndResyncsAnOvertakenMark) {
    ctx.touchAlarmSet();
    ctx.tick.alarmSetWanted = true;
    ctx.chime.controls = {true, "15", true};
    clock.set(2002, 5, 1, 8, 10, 0);
    updateChime(ctx);
    EXPECT_TRUE(ctx.tick.on);
    EXPECT_TRUE(ctx.chime.on);
    EXPECT_EQ(ctx.chime.nextMark, 15);
    runUntil(8, 15, 5);
    EXPECT_EQ(sound.waves, QStringList({ctx.folder + "didi.snd"}));
    EXPECT_EQ(ctx.chime.nextMark, 30);

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
    EXPECT_EQ(ctx.today.alarms.count(), 0);
    EXPECT_TRUE(ctx.today.messages.isEmpty());
    runUntil(8, 0, 6);
    EXPECT_TRUE(sound.played.isEmpty());
    EXPECT_TRUE(notices.alarmWindows.isEmpty());
    EXPECT_TRUE(ctx.tick.nextAlarm.isEmpty());
    // The schedule and the event list stay as they were.
    EXPECT_EQ(readFile("future.dat"), before);
    EXPECT_EQ(ctx.eventList.rows.count(), 2);
}
