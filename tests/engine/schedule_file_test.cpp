#include "engine/alarm_tick.h"
#include "engine/schedule_file.h"
#include "fakes.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

struct ScheduleFile : ::testing::Test, EngineFixture {
    ScheduleFile() { clock.set(2002, 5, 1, 8, 0, 0); }
    QStringList rows() const { return ctx.eventList.rows.items(); }
    QStringList today() const { return ctx.today.alarms.items(); }
};

} // namespace

TEST_F(ScheduleFile, LoadShowsMarksAndArmsOnlyTodaysComingEvents) {
    writeFile("future.dat", quotedRecord("Dentist2002/05/01twic08:30:00") + quotedRecord("2002/05/01once08:00:00") +
                                quotedRecord("2002/05/01thri08:00:01") + quotedRecord("old2001/12/31repe23:00:00") +
                                quotedRecord("2002/06/01repe07:00:00") + quotedRecord("2002/05/01once07:59:59"));
    loadSchedule(ctx, "future.dat");

    // Sorted by date-time; passed ones marked x; the event at the present second keeps its mark.
    EXPECT_EQ(rows(),
              QStringList({"      x    2001/12/31-23:00:00        old", "      x    2002/05/01-07:59:59        ",
                           "      -    2002/05/01-08:00:00        ", "      #    2002/05/01-08:00:01        ",
                           "      =    2002/05/01-08:30:00        Dentist", "      ~    2002/06/01-07:00:00        "}));
    // Only strictly later events of today are armed, the equal second is not.
    EXPECT_EQ(today(), QStringList({"thrice 08:00:01", "twice 08:30:00"}));
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Dentist at 08:30:00"}));
    EXPECT_EQ(std::pair(ctx.tick.on, ctx.tick.haveAlarms), std::pair(true, true));
    EXPECT_TRUE(notices.errorLists.empty());
}

TEST_F(ScheduleFile, MessagesKeepLineBreaksCommasAndShortLinesBorrowTheMessageBefore) {
    writeFile("future.dat", quotedRecord("line one\r\nline two, with comma2002/05/02once09:00:00") +
                                quotedRecord("2002/05/02once10:00:00") + quotedRecord("a2002/05/02twic11:00:00") +
                                quotedRecord("2002/05/02once10"));
    loadSchedule(ctx, "future.dat");
    ctx.eventList.rows.setCurrent(0);
    ctx.eventList.crackCurrentRow();
    EXPECT_EQ(ctx.eventList.crackedMessage(), "line one\r\nline two, with comma");
    // The exactly-22 line has no message; the short line fails its test and is reported.
    EXPECT_EQ(ctx.eventList.rows.item(1), "      -    2002/05/02-10:00:00        ");
    ASSERT_EQ(notices.errorLists.size(), 1u);
    EXPECT_EQ(notices.errorLists[0]->lines, QStringList({"future.dat", "Invalid data in file, Data  1"}));
    EXPECT_TRUE(notices.errorLists[0]->shown);
}

TEST_F(ScheduleFile, EightBadRecordsStopTheLoadButSevenDoNot) {
    const QByteArray seven = quotedRecord("garbage").repeated(7), good = quotedRecord("2002/05/03once09:00:00");
    writeFile("future.dat", seven + good);
    loadSchedule(ctx, "future.dat");
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(notices.errorLists.back()->lines.size(), 8);
    EXPECT_EQ(notices.errorLists.back()->lines.last(), "Invalid data in file, Data  7");

    writeFile("future.dat", seven + quotedRecord("garbage") + good);
    loadSchedule(ctx, "future.dat");
    EXPECT_EQ(std::tuple(rows().size(), notices.errorLists.size()), std::tuple(0, 2u));
    EXPECT_EQ(notices.errorLists.back()->lines.mid(8),
              QStringList({"Invalid data in file, Data  8", "future.dat seems to be wrong format"}));
}

TEST_F(ScheduleFile, OneHugeLineAndALakeOfEmptyLinesAreBadDataOfTheUsualKind) {
    // No line break in 4 MB: one field, one bad record.
    writeFile("future.dat", QByteArray(4 << 20, 'x'));
    loadSchedule(ctx, "future.dat");
    EXPECT_TRUE(rows().isEmpty());
    ASSERT_EQ(notices.errorLists.size(), 1u);
    EXPECT_EQ(notices.errorLists[0]->lines, QStringList({"future.dat", "Invalid data in file, Data  1"}));

    // A million empty lines: the eighth bad one ends the load.
    writeFile("future.dat", QByteArray(1'000'000, '\n'));
    loadSchedule(ctx, "future.dat");
    EXPECT_TRUE(rows().isEmpty());
    ASSERT_EQ(notices.errorLists.size(), 2u);
    EXPECT_EQ(notices.errorLists[1]->lines.size(), 10);
    EXPECT_EQ(notices.errorLists[1]->lines.last(), "future.dat seems to be wrong format");

    // A message of 4 MB loads whole; the list is given what fits of its row.
    const QByteArray message(4 << 20, 'm');
    writeFile("future.dat", quotedRecord(message + "2002/05/01twic08:30:00"));
    loadSchedule(ctx, "future.dat");
    ASSERT_EQ(rows().size(), 1);
    ctx.eventList.rows.setCurrent(0);
    ctx.eventList.crackCurrentRow();
    EXPECT_EQ(ctx.eventList.crackedMessage(), QString::fromLatin1(message));
    EXPECT_EQ(ctx.eventList.rows.data(ctx.eventList.rows.index(0)).toString().size(), ListModel::kShownLength);
    EXPECT_EQ(ctx.today.messages.items(), QStringList{QString::fromLatin1(message) + " at 08:30:00"});
}

TEST_F(ScheduleFile, MissingOrUnreadableFileChangesNothing) {
    ctx.eventList.insertRow("-", "2002/05/01-09:00:00", "", false);
    loadSchedule(ctx, "future.dat");
    // A schedule that cannot be read (here a folder) leaves the list as it was too.
    ASSERT_TRUE(QDir(ctx.folder).mkdir("future.dat"));
    loadSchedule(ctx, "future.dat");
    EXPECT_EQ(std::tuple(rows().size(), ctx.tick.on), std::tuple(1, false));
}

TEST_F(ScheduleFile, UnknownPlayWordOfTheFirstRecordLeavesAnEmptyWord) {
    writeFile("future.dat", quotedRecord("2002/05/01xxxx09:00:00") + quotedRecord("2002/05/01repe09:00:00") +
                                quotedRecord("2002/05/01zzzz10:00:00"));
    loadSchedule(ctx, "future.dat");
    // The first fails (empty word); the third takes word and mark of the line before.
    EXPECT_EQ(today(), QStringList({"repeat 09:00:00", "repeat 10:00:00"}));
    EXPECT_EQ(notices.errorLists.at(0)->lines.size(), 2);
}

TEST_F(ScheduleFile, SaveAppendsByteExactRecordsAndShowsTheRowHighlighted) {
    ctx.entry.date = "2002/05/01";
    ctx.newEvent = {"08:30:00", "twic", "=", false, false};
    appendToSchedule(ctx, "Dentist");
    ctx.newEvent = {"08:30:00", "once", "-", false, false};
    appendToSchedule(ctx, QString::fromUtf8("Café, noon"));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Dentist2002/05/01twic08:30:00\"\r\n"
                                                 "\"Caf\xe9, noon2002/05/01once08:30:00\"\r\n"));
    // Equal date-time: the newer row goes above; both stay highlighted.
    EXPECT_EQ(rows().at(0), QString::fromUtf8("      -    2002/05/01-08:30:00        Café, noon"));
    EXPECT_EQ(ctx.eventList.highlightedCount(), 2);
}

TEST_F(ScheduleFile, AQuotedMessageIsKeptWithApostrophesSoTheEventSurvivesTheNextLoad) {
    ctx.entry.date = "2002/05/09";
    ctx.newEvent = {"08:30:00", "once", "-", false, false};
    appendToSchedule(ctx, "Walk \"the\" dog");
    EXPECT_EQ(rows().at(0), "      -    2002/05/09-08:30:00        Walk 'the' dog");
    FileError error;
    ASSERT_TRUE(ctx.eventList.saveToFile(path("future.dat"), error));
    ctx.eventList.clear();
    loadSchedule(ctx, "future.dat");
    EXPECT_EQ(rows(), QStringList({"      -    2002/05/09-08:30:00        Walk 'the' dog"}));
    EXPECT_TRUE(notices.errorLists.empty());
}

TEST_F(ScheduleFile, SortingPutsNewRowsAheadOfEqualTimesAndSelectsThem) {
    insertTodayRow(ctx, "09:00:00", "once", true);
    insertTodayRow(ctx, "08:00:00", "twice", true);
    insertTodayRow(ctx, "09:00:00", "thrice", true);
    insertTodayRow(ctx, "10:00:00", "repeat", true);
    EXPECT_EQ(today(), QStringList({"twice 08:00:00", "thrice 09:00:00", "once 09:00:00", "repeat 10:00:00"}));
    EXPECT_EQ(ctx.today.alarms.currentIndex(), 3);
    // A batch gives the same order as one-by-one inserts, and selects the last row given.
    insertTodayRows(ctx, {"once 09:00:00", "twice 07:00:00", "thrice 09:00:00"});
    EXPECT_EQ(today(), QStringList({"twice 07:00:00", "twice 08:00:00", "thrice 09:00:00", "once 09:00:00",
                                    "thrice 09:00:00", "once 09:00:00", "repeat 10:00:00"}));
    EXPECT_EQ(ctx.today.alarms.currentIndex(), 2);
}

TEST_F(ScheduleFile, ARowThatFallsDueWhileALongLoadRunsIsArmedAndReportedAsSlipped) {
    QByteArray file;
    for (int i = 0; i < 2000; ++i)
        file += quotedRecord(QStringLiteral("2002/06/%1once09:00:00").arg(i % 28 + 1, 2, 10, QChar('0')).toLatin1());
    writeFile("future.dat", file + quotedRecord("midnight check2002/05/02once00:00:05"));
    // The reload at the turn of the day, on a clock that moves on a little at every reading.
    clock.set(2002, 5, 2, 0, 0, 0);
    clock.setStepPerReading(3);
    loadSchedule(ctx, "future.dat");
    clock.setStepPerReading(0);
    ASSERT_GT(clock.now(), QDateTime(QDate(2002, 5, 2), QTime(0, 0, 5)));
    EXPECT_EQ(today(), QStringList{"once 00:00:05"});
    EXPECT_EQ(ctx.today.messages.items(), QStringList{"midnight check at 00:00:05"});

    // Its minute over, the tick reports it.
    clock.set(2002, 5, 2, 0, 1, 0);
    AlarmTick tick(ctx);
    tick.onTick();
    EXPECT_EQ(notices.alarmWindows, QStringList({"alarm at 00:00:05", "midnight check at 00:00:05"}));
    EXPECT_TRUE(today().isEmpty());
}
