#include "engine/alarm_tick.h"
#include "engine/schedule_file.h"
#include "eventlist/popup_actions.h"
#include "fakes.h"
#include "recurring/recurring_arming.h"
#include "recurring/recurring_file.h"
#include "recurring/recurring_rows.h"

#include <gtest/gtest.h>

namespace {

struct RecurringArmingTest : ::testing::Test, EngineFixture {
    AlarmTick tick{ctx};
    RecurringArmingTest() { clock.set(2026, 11, 25, 8, 0, 0); }

    void store(const QString& rule, const QDateTime& start, const QString& message = QString(),
               const QString& uid = QStringLiteral("u1")) {
        QList<RecurringAlarm> alarms;
        QString problem;
        ASSERT_TRUE(recurring_file::load(path("recurring.ics"), alarms, problem));
        RecurringAlarm a;
        a.uid = uid;
        a.rule = rule;
        a.start = start;
        a.message = message;
        a.plays = QStringLiteral("twice");
        alarms.append(a);
        ASSERT_TRUE(recurring_file::save(path("recurring.ics"), alarms, problem));
    }
    void runUntil(const QDateTime& end) {
        while (clock.now() < end) {
            tick.onTick();
            clock.advanceMs(800);
        }
    }
};

QDateTime at(int y, int m, int d, int h, int mi, int s = 0) {
    return QDateTime(QDate(y, m, d), QTime(h, mi, s));
}

} // namespace

TEST_F(RecurringArmingTest, TodaysOccurrenceRingsOnceAndARestartDoesNotArmItAgain) {
    store("FREQ=DAILY", at(2026, 11, 1, 8, 0, 5), "Stretch");
    ctx.touchAlarmSet();
    ctx.touchAlarmSet();
    loadSchedule(ctx, "future.dat"); // a second reading of the same day arms nothing twice
    ASSERT_EQ(ctx.today.alarms.items(), QStringList{"twice 08:00:05"});
    EXPECT_EQ(ctx.today.messages.items(), QStringList{"Stretch at 08:00:05"});

    runUntil(at(2026, 11, 25, 8, 0, 7));
    EXPECT_EQ(sound.played.size(), 1);
    EXPECT_EQ(notices.alarmWindows, QStringList{"Stretch at 08:00:05"});
    EXPECT_EQ(readFile("recurring.state"), QByteArray("u1 2026/11/25 08:00:05\n"));

    // Started again with the clock put back: what rang today stays rung.
    Context again{clock, notices, sound};
    again.setStartValues(dir.path());
    clock.set(2026, 11, 25, 8, 0, 0);
    recurring_arming::armToday(again);
    EXPECT_TRUE(again.today.alarms.isEmpty());
}

TEST_F(RecurringArmingTest, TheMidnightReloadArmsTheNewDaysOccurrences) {
    store("FREQ=WEEKLY;BYDAY=TH", at(2026, 11, 5, 0, 0, 30), "Thursday");
    store("FREQ=DAILY", at(2026, 11, 1, 0, 0, 0), "", "midnight");
    ctx.touchAlarmSet();
    EXPECT_TRUE(ctx.today.alarms.isEmpty()); // Wednesday: not its day
    clock.set(2026, 11, 25, 23, 59, 58);
    runUntil(at(2026, 11, 26, 0, 0, 2));
    // An occurrence at the second of the reload is not armed, as a schedule line of that second is not.
    EXPECT_EQ(ctx.today.alarms.items(), QStringList{"twice 00:00:30"});
    runUntil(at(2026, 11, 26, 0, 0, 32));
    EXPECT_EQ(notices.alarmWindows, QStringList{"Thursday at 00:00:30"});
}

TEST_F(RecurringArmingTest, ABrokenFileIsReportedOnceAndArmsNothing) {
    writeFile("recurring.ics", "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:x\r\nDTSTART:20261101T090000\r\n"
                               "RRULE:FREQ=SECONDLY\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    ctx.touchAlarmSet();
    recurring_arming::armToday(ctx);
    ASSERT_EQ(notices.errorLists.size(), 1u);
    EXPECT_TRUE(notices.errorLists[0]->lines.join(' ').contains("within the hour"));
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
}

TEST_F(RecurringArmingTest, NextOccurrenceOfAnyRecurringAlarm) {
    store("FREQ=WEEKLY;BYDAY=MO", at(2026, 11, 2, 7, 0), "", "monday");
    store("FREQ=MONTHLY", at(2026, 10, 27, 6, 0), "", "monthly");
    EXPECT_EQ(recurring_arming::nextOccurrenceAfter(ctx, at(2026, 11, 25, 8, 0)), at(2026, 11, 27, 6, 0));
    EXPECT_EQ(recurring_arming::nextOccurrenceAfter(ctx, at(2026, 11, 27, 6, 0)), at(2026, 11, 30, 7, 0));
}

TEST_F(RecurringArmingTest, TheEventListShowsOccurrencesWithoutWritingThemAndItsDeleteSkipsADayOrEndsTheSeries) {
    store("FREQ=DAILY", at(2026, 11, 1, 9, 0), "Pills");
    writeFile("future.dat", quotedRecord("Dentist2026/11/27once10:00:00"));
    ctx.touchAlarmSet();
    const QStringList& rows = ctx.eventList.rows.items();
    ASSERT_EQ(rows.size(), 1 + recurring_rows::kShownPerAlarm);
    EXPECT_EQ(rows[0], "     *=    2026/11/25-09:00:00        Pills"); // twice, and recurring
    EXPECT_EQ(rows[3], "      -    2026/11/27-10:00:00        Dentist"); // after 09:00 of the same day

    // The schedule's own row deleted: the file keeps no occurrence.
    ctx.eventList.rows.selectOnly(3);
    deleteFromPopup(ctx);
    EXPECT_TRUE(readFile("future.dat").isEmpty());

    ctx.eventList.rows.selectOnly(0);
    deleteRecurringRows(ctx, highlightedRecurringRows(ctx), false);
    EXPECT_TRUE(ctx.today.alarms.isEmpty()); // today's occurrence is skipped
    EXPECT_TRUE(readFile("recurring.ics").contains("EXDATE:20261125T090000"));
    EXPECT_EQ(ctx.eventList.rows.items().first().mid(11, 19), "2026/11/26-09:00:00");

    ctx.eventList.rows.selectOnly(0);
    deleteRecurringRows(ctx, highlightedRecurringRows(ctx), true);
    EXPECT_TRUE(ctx.eventList.rows.isEmpty());
    EXPECT_FALSE(readFile("recurring.ics").contains("BEGIN:VEVENT"));
}
