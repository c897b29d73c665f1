#include "engine/alarm_tick.h"
#include "engine/schedule_file.h"
#include "eventlist/popup_actions.h"
#include "fakes.h"
#include "local_zone.h"
#include "recurring/recurrence.h"
#include "recurring/recurring_arming.h"
#include "recurring/recurring_file.h"
#include "recurring/recurring_rows.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace {

RecurringAlarm alarm(const QString& rule, const QDateTime& start, QList<QDateTime> skipped = {}) {
    RecurringAlarm a;
    a.uid = QStringLiteral("u1");
    a.rule = rule;
    a.start = start;
    a.skipped = skipped;
    return a;
}

QDateTime at(int y, int m, int d, int h = 7, int mi = 0, int s = 0) {
    return QDateTime(QDate(y, m, d), QTime(h, mi, s));
}

struct RecurringArmingTest : ::testing::Test, EngineFixture {
    AlarmTick tick{ctx};
    RecurringArmingTest() { clock.set(2026, 11, 25, 8, 0, 0); }

    void store(const QString& rule, const QDateTime& start, const QString& message = QString(),
               const QString& uid = QStringLiteral("u1")) {
        QList<RecurringAlarm> alarms;
        QString problem;
        ASSERT_TRUE(recurring_file::load(path("recurring.ics"), alarms, problem));
        alarms.append(alarm(rule, start));
        alarms.last().uid = uid;
        alarms.last().message = message;
        alarms.last().plays = QStringLiteral("twice");
        ASSERT_TRUE(recurring_file::save(path("recurring.ics"), alarms, problem));
    }
    void runUntil(const QDateTime& end) {
        while (clock.now() < end) {
            tick.onTick();
            clock.advanceMs(800);
        }
    }
};

} // namespace

TEST(RecurrenceTest, TimesOfADay) {
    const LocalZone zone("Europe/Berlin");
    const QStringList seven{"07:00:00"};
    const std::tuple<const char*, RecurringAlarm, QDate, QStringList> cases[] = {
        {"daily on the day the clocks go forward", alarm("FREQ=DAILY", at(2026, 3, 20)), QDate(2026, 3, 29), seven},
        {"daily on the day the clocks go back", alarm("FREQ=DAILY", at(2026, 3, 20)), QDate(2026, 10, 25), seven},
        // 02:30 does not exist that night: the alarm rings when the clock has jumped past it.
        {"in the skipped hour", alarm("FREQ=DAILY", at(2026, 3, 20, 2, 30)), QDate(2026, 3, 29), {"03:30:00"}},
        {"in the doubled hour", alarm("FREQ=DAILY", at(2026, 3, 20, 2, 30)), QDate(2026, 10, 25), {"02:30:00"}},
        {"31st in February", alarm("FREQ=MONTHLY", at(2026, 1, 31)), QDate(2026, 2, 28), {}},
        {"31st in March", alarm("FREQ=MONTHLY", at(2026, 1, 31)), QDate(2026, 3, 31), seven},
        {"31st in April", alarm("FREQ=MONTHLY", at(2026, 1, 31)), QDate(2026, 4, 30), {}},
        {"29th in a short February", alarm("FREQ=MONTHLY", at(2026, 1, 29)), QDate(2026, 2, 28), {}},
        {"30th in a leap February", alarm("FREQ=MONTHLY", at(2028, 1, 30)), QDate(2028, 2, 29), {}},
        {"last day of the month", alarm("FREQ=MONTHLY;BYMONTHDAY=-1", at(2026, 1, 31)), QDate(2026, 2, 28), seven},
        {"leap day in a common year", alarm("FREQ=YEARLY", at(2024, 2, 29)), QDate(2025, 2, 28), {}},
        {"leap day in a leap year", alarm("FREQ=YEARLY", at(2024, 2, 29)), QDate(2028, 2, 29), seven},
        {"last day of UNTIL", alarm("FREQ=DAILY;UNTIL=20260310T235959", at(2026, 3, 1)), QDate(2026, 3, 10), seven},
        {"after UNTIL", alarm("FREQ=DAILY;UNTIL=20260310T235959", at(2026, 3, 1)), QDate(2026, 3, 11), {}},
        {"last of COUNT", alarm("FREQ=DAILY;COUNT=3", at(2026, 3, 1)), QDate(2026, 3, 3), seven},
        {"after COUNT", alarm("FREQ=DAILY;COUNT=3", at(2026, 3, 1)), QDate(2026, 3, 4), {}},
        {"skipped by EXDATE", alarm("FREQ=DAILY", at(2026, 3, 1), {at(2026, 3, 2)}), QDate(2026, 3, 2), {}},
        {"the day after EXDATE", alarm("FREQ=DAILY", at(2026, 3, 1), {at(2026, 3, 2)}), QDate(2026, 3, 3), seven},
        {"weekday in the set", alarm("FREQ=WEEKLY;BYDAY=MO,WE,FR", at(2026, 3, 2)), QDate(2026, 3, 4), seven},
        {"weekday out of the set", alarm("FREQ=WEEKLY;BYDAY=MO,WE,FR", at(2026, 3, 2)), QDate(2026, 3, 5), {}},
        {"before the start", alarm("FREQ=DAILY", at(2026, 3, 2)), QDate(2026, 3, 1), {}},
        {"twice a day", alarm("FREQ=DAILY;BYHOUR=7,19", at(2026, 3, 2)), QDate(2026, 3, 9), {"07:00:00", "19:00:00"}},
    };
    for (const auto& [what, recurring, day, times] : cases)
        EXPECT_EQ(recurrence::timesOn(recurring, day), times) << what;
}

TEST(RecurrenceTest, NextOccurrenceAfterAMoment) {
    const RecurringAlarm weekdays = alarm("FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR", at(2026, 11, 2));
    EXPECT_EQ(recurrence::nextAfter(weekdays, at(2026, 11, 27, 7, 0)), at(2026, 11, 30)); // Friday's has rung
    EXPECT_EQ(recurrence::nextAfter(weekdays, at(2026, 11, 27, 6, 59)), at(2026, 11, 27));
    const RecurringAlarm counted = alarm("FREQ=DAILY;COUNT=2", at(2026, 11, 2));
    EXPECT_EQ(recurrence::nextAfter(counted, at(2026, 11, 3, 8, 0)), std::nullopt);
}

TEST(RecurrenceTest, ADayHoldsAtMostItsCapAndARuleThatNeverMatchesEndsAtOnce) {
    const RecurringAlarm hourly = alarm("FREQ=HOURLY;BYMINUTE=0,10,20,30,40,50", at(2026, 3, 2, 0, 0));
    EXPECT_EQ(recurrence::timesOn(hourly, QDate(2026, 3, 3)).size(), recurrence::kMostPerDay);

    // Rules whose days never come: libical alone would search for centuries on the first (18 s).
    QElapsedTimer timer;
    timer.start();
    for (const char* rule : {"FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
                             "FREQ=MONTHLY;BYDAY=MO;BYSETPOS=6"}) {
        const RecurringAlarm never = alarm(rule, at(2026, 1, 30));
        EXPECT_EQ(recurrence::nextAfter(never, at(2026, 1, 31)), std::nullopt) << rule;
        EXPECT_TRUE(recurrence::timesOn(never, QDate(2030, 2, 28)).isEmpty()) << rule;
        EXPECT_TRUE(recurrence::seriesProblem(never).contains("no day to ring on")) << rule;
    }
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(recurrence::seriesProblem(hourly), QString());
}

TEST(RecurringFileTest, RefusesWhatIsNoAlarmFileWithAReason) {
    QByteArray random(4096, '\0');
    for (int i = 0; i < random.size(); ++i)
        random[i] = char((i * 7919 + 13) % 251);
    const QByteArray head = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20260301T070000\r\n";
    const QByteArray tail = "END:VEVENT\r\nEND:VCALENDAR\r\n";
    const std::tuple<const char*, QByteArray, const char*> cases[] = {
        {"random bytes", random, "not an iCalendar file"},
        {"a 50 MB line", head + "DESCRIPTION:" + QByteArray(50 * 1024 * 1024, 'x') + "\r\n" + tail, "larger than"},
        {"every second", head + "RRULE:FREQ=SECONDLY\r\n" + tail, "within the hour"},
        {"every minute", head + "RRULE:FREQ=MINUTELY;INTERVAL=5\r\n" + tail, "within the hour"},
        {"no rule", head + tail, "no RRULE"},
        {"a rule that is none", head + "RRULE:FREQ=SOMETIMES\r\n" + tail, "rule"},
    };
    for (const auto& [what, text, reason] : cases) {
        QList<RecurringAlarm> alarms;
        QString problem;
        QElapsedTimer timer;
        timer.start();
        EXPECT_FALSE(recurring_file::parse(text, alarms, problem)) << what;
        EXPECT_TRUE(problem.contains(QLatin1String(reason), Qt::CaseInsensitive))
            << what << ": " << qPrintable(problem);
        EXPECT_LT(timer.elapsed(), 5000) << what;
    }
}

// Starts in UTC and in zones with their VTIMEZONE are read as the calendar import test imports them.
TEST(RecurringFileTest, WhatIsWrittenReadsBack) {
    const LocalZone zone("Europe/Berlin");
    RecurringAlarm a = alarm("FREQ=WEEKLY;UNTIL=20261231T235959;BYDAY=MO,FR", at(2026, 11, 2, 6, 45));
    a.skipped = {at(2026, 11, 6, 6, 45)};
    a.plays = QStringLiteral("thrice");
    a.message = QStringLiteral("Bins out\r\nand \"recycling\"");
    QList<RecurringAlarm> back;
    QString problem;
    ASSERT_TRUE(recurring_file::parse(recurring_file::serialize({a}), back, problem)) << qPrintable(problem);
    ASSERT_EQ(back.size(), 1);
    EXPECT_EQ(std::tuple(back[0].uid, back[0].start, back[0].skipped, back[0].plays),
              std::tuple(a.uid, a.start, a.skipped, a.plays));
    EXPECT_EQ(back[0].message, QStringLiteral("Bins out\r\nand 'recycling'"));
    EXPECT_EQ(recurrence::timesOn(back[0], QDate(2026, 11, 9)), QStringList{"06:45:00"});
    EXPECT_TRUE(recurrence::timesOn(back[0], QDate(2026, 11, 6)).isEmpty());

    // A zone named without its VTIMEZONE, as written by hand.
    ASSERT_TRUE(recurring_file::parse("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:n\r\n"
                                      "DTSTART;TZID=America/New_York:20260301T090000\r\nRRULE:FREQ=DAILY\r\n"
                                      "END:VEVENT\r\nEND:VCALENDAR\r\n",
                                      back, problem));
    EXPECT_EQ(back.value(0).start, at(2026, 3, 1, 15, 0));
}

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
    EXPECT_EQ(rows[0], "     *=    2026/11/25-09:00:00        Pills");   // twice, and recurring
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
