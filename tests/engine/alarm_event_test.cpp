#include "engine/alarm_event.h"
#include "engine/event_checker.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace alarm_event;

// The rest of the word conversions are checked where rows are loaded, saved and shown.
TEST(AlarmEvent, UnknownPlayWordsFallBackToOnce) {
    EXPECT_EQ(fromWholeWord("Play Times").shortWord, "once");
    EXPECT_EQ(wholeWordFromTodayRow(u"zz 08:30:00"), "once");
}

TEST(AlarmEvent, RowFormsAndCracking) {
    // Cracking full rows is checked wherever a row is edited or loaded.
    EXPECT_EQ(crackRow(eventListRow("~", "2002/05/01-08:30:00", "   ")).message, "   ");
    // A record's bytes: Windows-1252 decoded, a double quote kept as an apostrophe, a mark not yet known left null.
    EXPECT_EQ(
        eventListRow(QChar(), QLatin1String("2002/05/01"), QLatin1String("08:30:00"), QLatin1String("\x80\"\xe9")),
        QStringLiteral("      ") + QChar() + QStringLiteral("    2002/05/01-08:30:00        \u20ac'\u00e9"));
    // Short rows give shorter fields.
    EXPECT_EQ(std::tuple(crackRow("      -    2002/0").date, crackRow("      -").date), std::tuple("2002/0", ""));
}

TEST(AlarmEvent, TimeWasPassedIncludesTheEqualSecond) {
    EXPECT_TRUE(timeWasPassed(u"once 08:30:00", u"08:30:00"));
    EXPECT_TRUE(timeWasPassed(u"once 08:29:59", u"08:30:00"));
    EXPECT_FALSE(timeWasPassed(u"once 08:30:01", u"08:30:00"));
    EXPECT_FALSE(timeWasPassed(u"09:00:00", u"08:59:59"));
}

TEST(EventChecker, RowChecks) {
    EventChecker checker;
    // row -> passes as an alarm row, passes as a message row
    const std::tuple<const char*, bool, bool> cases[] = {
        {"once 00:00:00", true, false},  {"repeat 23:59:59", true, false},      {" 08:30:00", false, false},
        {"once 24:00:00", false, false}, {"once 08:60:00", false, false},       {"twic 08:30:00", false, false},
        {"once  8:30:00", false, false}, {"Dentist at 08:30:00", false, true},  {"a\r\nb at 23:00:00", false, true},
        {" at 08:30:00", false, false},  {"Dentist at 8:30:00x", false, false},
    };
    for (const auto& [row, alarm, message] : cases) {
        int16_t alarmFlag = 1, messageFlag = 1;
        checker.checkAlarmRow(QString(row), alarmFlag);
        checker.checkMessageRow(QString(row), messageFlag);
        EXPECT_EQ(alarmFlag != 0, alarm) << row;
        EXPECT_EQ(messageFlag != 0, message) << row;
    }
}

TEST(EventChecker, ChimeMarks) {
    EventChecker checker;
    for (auto [interval, next, after] : {std::tuple<int16_t, int16_t, int16_t>{15, 45, 0}, {60, 23, 0}, {1, 58, 59}}) {
        checker.nextChimeMark(interval, next);
        EXPECT_EQ(next, after) << interval;
    }

    EventChecker::ChimeControls controls{true, "15", true};
    int16_t minutes = 0, flag = 0, mark = -1;
    checker.startChime(controls, minutes, flag, mark, 10, 15);
    EXPECT_EQ(std::tuple(minutes, mark), std::tuple(15, 30));
    checker.startChime(controls, minutes, flag, mark, 10, 50);
    EXPECT_EQ(mark, 0);
    controls.interval = "60";
    checker.startChime(controls, minutes, flag, mark, 10, 7);
    EXPECT_EQ(minutes, 60);
    EXPECT_EQ(mark, 11); // hourly marks name the hour
    checker.startChime(controls, minutes, flag, mark, 23, 10);
    EXPECT_EQ(mark, 0);
}
