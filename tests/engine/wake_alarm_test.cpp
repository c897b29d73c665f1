#include "alarmset/day_list_delete.h"
#include "engine/alarm_tick.h"
#include "engine/wake_alarm.h"
#include "platform/wake_timer.h"
#include "recurring/recurring_file.h"
#include "served_engine.h"

#include <gtest/gtest.h>

namespace {

// A wake-up timer on the test's clock, going off when the test says time has passed.
struct FakeWakeTimer : WakeTimer {
    explicit FakeWakeTimer(const FakeClock& c) : clock(c) {}
    const FakeClock& clock;
    QString reason; // set: it cannot arm, for this reason
    QDateTime goesOffAt;
    int arms = 0;

    bool arm(qint64 ms) override {
        ++arms;
        goesOffAt = reason.isEmpty() ? clock.now().addMSecs(ms) : QDateTime();
        return reason.isEmpty();
    }
    void disarm() override { goesOffAt = QDateTime(); }
    qint64 remainingMs() const override {
        const qint64 left = goesOffAt.isValid() ? clock.now().msecsTo(goesOffAt) : -1;
        return left > 0 ? left : -1;
    }
    QString status() const override {
        return !reason.isEmpty() ? "unavailable: " + reason : goesOffAt.isValid() ? "armed" : "off";
    }
    void goOffIfDue() {
        if (goesOffAt.isValid() && clock.now() >= goesOffAt) {
            goesOffAt = QDateTime();
            onExpired();
        }
    }
};

QDateTime at(int d, int h, int m, int s) {
    return QDateTime(QDate(2002, 5, d), QTime(h, m, s));
}

struct WakeAlarmTest : ::testing::Test, ServedEngine {
    FakeWakeTimer timer{clock};
    WakeAlarm wake{ctx, timer, 60000};
    AlarmTick tick{ctx};

    WakeAlarmTest() { ctx.wake = &wake; }
    // The 800 ms tick until the clock reaches the moment, the timer going off on the way.
    void runUntil(const QDateTime& end) {
        while (clock.now() < end) {
            timer.goOffIfDue();
            tick.onTick();
            clock.advanceMs(800);
        }
    }
    QString printedList() {
        command_protocol::Request plain;
        plain.command = "list";
        return command_client::answerFor(plain, command_protocol::toLine(send("list"))).out;
    }
    QStringList wakes() {
        QStringList states;
        for (const QJsonValue& e : events())
            states.append(e.toObject().value("wake").toString());
        return states;
    }
};

} // namespace

// The wake times of the usual advance are followed through the engine below; a short advance wakes that much early.
TEST(WakePlanTest, AShortAdvanceWakesThatMuchBeforeTheAlarm) {
    const QDateTime rings = at(1, 9, 0, 0);
    EXPECT_EQ(wake_plan::wakeTime(rings, at(1, 8, 59, 50), 3000), at(1, 8, 59, 57));
    EXPECT_EQ(wake_plan::wakeTime(rings, at(1, 8, 59, 57), 3000), rings);
}

TEST(WakePlanTest, AdvanceSetting) {
    EXPECT_EQ(wake_plan::advanceMs({}, false), 60000);
    for (const auto& [text, ms] :
         {std::pair<const char*, qint64>{"off", 0}, {"0", 0}, {"90", 90000}, {"86400", 86400000}})
        EXPECT_EQ(wake_plan::advanceMs(text, true), ms) << text;
    for (const char* refused : {"86401", "-5", "soon", ""})
        EXPECT_EQ(wake_plan::advanceMs(refused, true), std::nullopt) << refused;
}

TEST_F(WakeAlarmTest, FollowsTheNextAlarmThroughAddDeleteFireAndMidnight) {
    writeBytes(ctx.folder + "future.dat",
               quotedRecord("2002/05/01once09:00:00") + quotedRecord("Tomorrow2002/05/02once07:00:00"));
    send("list"); // the first touch arms today's
    EXPECT_EQ(timer.goesOffAt, at(1, 8, 59, 0));
    EXPECT_EQ(printedList(), "2002/05/01 09:00:00 once\n2002/05/02 07:00:00 once Tomorrow\nWake-up: the computer wakes "
                             "at 2002/05/01 08:59:00 for the alarm at 2002/05/01 09:00:00, also from a suspend\n");

    send("add --time 08:30:00"); // an earlier one, at once
    EXPECT_EQ(timer.goesOffAt, at(1, 8, 29, 0));
    EXPECT_EQ(wakes(), QStringList({"armed", "later", "later"}));

    deleteAllToday(ctx); // as the window's Delete All: only the schedule's later day is left
    tick.onTick();
    EXPECT_EQ(timer.goesOffAt, at(2, 6, 59, 0));

    send("add --time 08:00:10");
    EXPECT_EQ(timer.goesOffAt, at(1, 8, 0, 5)); // less than the advance is left
    runUntil(at(1, 8, 0, 11));
    EXPECT_EQ(std::tuple(sound.played.size(), timer.goesOffAt), std::tuple(1, at(2, 6, 59, 0)));

    // Through the reload at midnight the same alarm stays next: nothing is armed again.
    const int arms = timer.arms;
    clock.set(at(1, 23, 59, 58));
    runUntil(at(2, 0, 0, 2));
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 07:00:00"}));
    EXPECT_EQ(timer.goesOffAt, at(2, 6, 59, 0));
    EXPECT_EQ(timer.arms, arms);
}

TEST_F(WakeAlarmTest, ASuspendInTheLastMinuteStillEndsBeforeTheAlarm) {
    ctx.options.noSecond = true; // rings at the minute's start
    send("add --time 08:10:30");
    EXPECT_EQ(timer.goesOffAt, at(1, 8, 9, 0));
    // Each jump is a suspend ended by the timer; the tick had no chance to run in between.
    for (const QDateTime& next : {at(1, 8, 9, 55), at(1, 8, 10, 0)}) {
        clock.set(timer.goesOffAt);
        timer.goOffIfDue();
        EXPECT_EQ(timer.goesOffAt, next);
    }
    // Gone off at the alarm's own second, it is the tick's: no timer for a moment already come.
    clock.set(timer.goesOffAt);
    timer.goOffIfDue();
    EXPECT_FALSE(timer.goesOffAt.isValid());
    runUntil(at(1, 8, 10, 1));
    EXPECT_EQ(sound.played.size(), 1);
}

TEST_F(WakeAlarmTest, DisabledOffOrUnavailableWakesNobodyAndSaysWhy) {
    send("add --time 09:00:00");
    send("add --date 2002/05/02 --time 09:00:00");
    wake.setDisabled(true);
    EXPECT_FALSE(timer.goesOffAt.isValid());
    EXPECT_EQ(wakes(), QStringList({"unavailable: alarms disabled", "unavailable: alarms disabled"}));
    wake.setDisabled(false);
    EXPECT_EQ(timer.goesOffAt, at(1, 8, 59, 0));

    // A timer that cannot arm is not asked on every tick, only for another time.
    timer.reason = "no permission";
    timer.disarm();
    clock.set(at(1, 8, 0, 30));
    runUntil(at(1, 8, 1, 0));
    const int arms = timer.arms;
    runUntil(at(1, 8, 2, 0));
    EXPECT_EQ(timer.arms, arms);
    EXPECT_EQ(wakes(), QStringList({"unavailable: no permission", "unavailable: no permission"}));
    EXPECT_TRUE(printedList().endsWith("\nWake-up: the computer will not wake from a suspend for the next alarm "
                                       "(no permission)\n"));
    send("add --time 08:30:00");
    EXPECT_EQ(timer.arms, arms + 1);

    timer.reason.clear();
    WakeAlarm off(ctx, timer, 0);
    ctx.wake = &off;
    EXPECT_EQ(wakes(), QStringList({"unavailable: turned off", "unavailable: turned off", "unavailable: turned off"}));
}

TEST_F(WakeAlarmTest, BeforeTheScheduleIsLoadedItsFilesTellTheNextDay) {
    // Only the midnight reload reads these; a suspend before it must still end in time for them.
    writeBytes(ctx.folder + "future.dat", quotedRecord("2002/05/01once09:00:00") +
                                              quotedRecord("2002/05/04once06:00:00") + quotedRecord("junk") +
                                              quotedRecord("Later2002/05/03twic07:00:00"));
    RecurringAlarm daily;
    daily.uid = "d";
    daily.start = at(3, 6, 30, 0);
    daily.rule = "FREQ=DAILY";
    QString problem;
    ASSERT_TRUE(recurring_file::save(ctx.folder + "recurring.ics", {daily}, problem)) << qPrintable(problem);
    runUntil(at(1, 8, 0, 2));
    EXPECT_EQ(std::tuple(ctx.alarmSetLoaded(), timer.goesOffAt), std::tuple(false, at(3, 6, 29, 0)));

    QFile::remove(ctx.folder + "recurring.ics");
    runUntil(at(1, 8, 0, 4));
    EXPECT_EQ(timer.goesOffAt, at(3, 6, 59, 0));
}
