#include "engine/alarm_event.h"
#include "engine/event_checker.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace alarm_event;

TEST(AlarmEvent, PlayWordConversionsInEveryDirection) {
    EXPECT_EQ(fromWholeWord("twice").shortWord, "twic");
    EXPECT_EQ(fromWholeWord("repeat").mark, QLatin1Char('~'));
    EXPECT_EQ(fromWholeWord("Play Times").shortWord, "once");
    QString word = "kept";
    QChar mark = QLatin1Char('?');
    EXPECT_FALSE(fromShortWord(u"xxxx", word, mark));
    EXPECT_EQ(word, "kept");
    EXPECT_TRUE(fromShortWord(u"thri", word, mark));
    EXPECT_EQ(word, "thrice");
    EXPECT_EQ(mark, QLatin1Char('#'));
    EXPECT_EQ(shortWordFromMark(QLatin1Char('x')), "once");
    EXPECT_EQ(shortWordFromMark(QLatin1Char('~')), "repe");
    EXPECT_EQ(wholeWordFromTodayRow(u"thrice 08:30:00"), "thrice");
    EXPECT_EQ(wholeWordFromTodayRow(u"zz 08:30:00"), "once");
    EXPECT_EQ(viewMarkFromTodayRow(u"repeat 08:30:00"), QLatin1Char('~'));
    EXPECT_EQ(viewMarkFromTodayRow(u"once 08:30:00"), QLatin1Char('_'));
    EXPECT_EQ(viewMarkFromTodayRow(u"bad 08:30:00"), QLatin1Char('?'));
}

TEST(AlarmEvent, RowFormsAndCracking) {
    EXPECT_EQ(scheduleLine("Dentist", "2002/05/01", "twic", "08:30:00"), "Dentist2002/05/01twic08:30:00");
    const QString row = eventListRow("=", "2002/05/01-08:30:00", "");
    EXPECT_EQ(row.size(), kRowFixedLength);
    EXPECT_EQ(crackRow(row).message, "");
    const CrackedRow c = crackRow(eventListRow("~", "2002/05/01-08:30:00", "   "));
    EXPECT_EQ(c.mark, "~");
    EXPECT_EQ(c.date, "2002/05/01");
    EXPECT_EQ(c.time, "08:30:00");
    EXPECT_EQ(c.message, "   ");
    EXPECT_EQ(crackRow(eventListRow("-", "2002/05/01-08:30:00", "a\r\nb")).message, "a\r\nb");
    // A message holding " at " and a time reads back whole when cut 12 characters from the end.
    EXPECT_EQ(messageOfMessageRow(messageRow("meet at 09:00:00", "10:00:00")), "meet at 09:00:00");
    // A record's bytes: Windows-1252 decoded, a double quote kept as an apostrophe, a mark not yet known left null.
    EXPECT_EQ(
        eventListRow(QChar(), QLatin1String("2002/05/01"), QLatin1String("08:30:00"), QLatin1String("\x80\"\xe9")),
        QStringLiteral("      ") + QChar() + QStringLiteral("    2002/05/01-08:30:00        \u20ac'\u00e9"));
    // Short rows give shorter fields.
    EXPECT_EQ(crackRow("      -    2002/0").date, "2002/0");
    EXPECT_EQ(crackRow("      -").date, "");
}

TEST(AlarmEvent, TimeWasPassedIncludesTheEqualSecond) {
    EXPECT_TRUE(timeWasPassed(u"once 08:30:00", u"08:30:00"));
    EXPECT_TRUE(timeWasPassed(u"once 08:29:59", u"08:30:00"));
    EXPECT_FALSE(timeWasPassed(u"once 08:30:01", u"08:30:00"));
    EXPECT_FALSE(timeWasPassed(u"09:00:00", u"08:59:59"));
}

TEST(EventChecker, RowChecks) {
    EventChecker checker;
    auto alarm = [&](const QString& t) {
        int16_t flag = 1;
        checker.checkAlarmRow(t, flag);
        return flag != 0;
    };
    for (const char* good : {"once 00:00:00", "repeat 23:59:59"})
        EXPECT_TRUE(alarm(good)) << good;
    for (const char* bad : {" 08:30:00", "once 24:00:00", "once 08:60:00", "twic 08:30:00", "once  8:30:00"})
        EXPECT_FALSE(alarm(bad)) << bad;
    auto message = [&](const QString& t) {
        int16_t flag = 1;
        checker.checkMessageRow(t, flag);
        return flag != 0;
    };
    for (const char* good : {"Dentist at 08:30:00", "a\r\nb at 23:00:00"})
        EXPECT_TRUE(message(good)) << good;
    for (const char* bad : {" at 08:30:00", "Dentist at 8:30:00x", "repeat 08:30:00"})
        EXPECT_FALSE(message(bad)) << bad;
}

TEST(EventChecker, ChimeMarks) {
    EventChecker checker;
    int16_t next = 45;
    checker.nextChimeMark(15, next);
    EXPECT_EQ(next, 0);
    next = 23;
    checker.nextChimeMark(60, next);
    EXPECT_EQ(next, 0);
    next = 58;
    checker.nextChimeMark(1, next);
    EXPECT_EQ(next, 59);

    EventChecker::ChimeControls controls{true, "15", true};
    int16_t minutes = 0, flag = 0, mark = -1;
    checker.startChime(controls, minutes, flag, mark, 10, 15);
    EXPECT_EQ(minutes, 15);
    EXPECT_EQ(mark, 30);
    EXPECT_EQ(flag, 1);
    EXPECT_FALSE(controls.intervalEnabled);
    checker.startChime(controls, minutes, flag, mark, 10, 50);
    EXPECT_EQ(mark, 0);
    controls.interval = "60";
    checker.startChime(controls, minutes, flag, mark, 10, 7);
    EXPECT_EQ(minutes, 60);
    EXPECT_EQ(mark, 11); // hourly marks name the hour
    checker.startChime(controls, minutes, flag, mark, 23, 10);
    EXPECT_EQ(mark, 0);
    controls.checked = false;
    flag = 0;
    checker.startChime(controls, minutes, flag, mark, 10, 15);
    EXPECT_EQ(flag, 0);
    EXPECT_TRUE(controls.intervalEnabled);
}
