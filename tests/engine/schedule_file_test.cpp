#include "engine/schedule_file.h"
#include "fakes.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

struct ScheduleFile : ::testing::Test, EngineFixture {
    ScheduleFile() { clock.set(2002, 5, 1, 8, 0, 0); }
    QStringList rows() const { return ctx.Bwklistbox1.lstMain.items(); }
    QStringList today() const { return ctx.lstData.items(); }
};

} // namespace

TEST_F(ScheduleFile, LoadShowsMarksAndArmsOnlyTodaysComingEvents) {
    writeFile("future.dat", quotedRecord("Dentist2002/05/01twic08:30:00") + quotedRecord("2002/05/01once08:00:00") +
                                quotedRecord("2002/05/01thri08:00:01") + quotedRecord("old2001/12/31repe23:00:00") +
                                quotedRecord("2002/06/01repe07:00:00"));
    LoadFutureFile(ctx, "future.dat");

    // Sorted by date-time; passed ones marked x; the event at the present second keeps its mark.
    EXPECT_EQ(rows(),
              QStringList({"      x    2001/12/31-23:00:00        old", "      -    2002/05/01-08:00:00        ",
                           "      #    2002/05/01-08:00:01        ", "      =    2002/05/01-08:30:00        Dentist",
                           "      ~    2002/06/01-07:00:00        "}));
    // Only strictly later events of today are armed, the equal second is not.
    EXPECT_EQ(today(), QStringList({"thrice 08:00:01", "twice 08:30:00"}));
    EXPECT_EQ(ctx.lstMessage.items(), QStringList({"Dentist at 08:30:00"}));
    EXPECT_TRUE(ctx.m.blnTickOn);
    EXPECT_TRUE(ctx.m.blnHaveAlarms);
    EXPECT_TRUE(notices.errorLists.empty());
}

TEST_F(ScheduleFile, MessagesKeepLineBreaksCommasAndShortLinesBorrowTheMessageBefore) {
    writeFile("future.dat", quotedRecord("line one\r\nline two, with comma2002/05/02once09:00:00") +
                                quotedRecord("2002/05/02once10:00:00") + quotedRecord("a2002/05/02twic11:00:00") +
                                quotedRecord("2002/05/02once10"));
    LoadFutureFile(ctx, "future.dat");
    ctx.Bwklistbox1.lstMain.setCurrent(0);
    ctx.Bwklistbox1.CrackAlarmEvent();
    EXPECT_EQ(ctx.Bwklistbox1.MessageIs(), "line one\r\nline two, with comma");
    // The exactly-22 line has no message; the short line fails its test and is reported.
    EXPECT_EQ(ctx.Bwklistbox1.lstMain.item(1), "      -    2002/05/02-10:00:00        ");
    ASSERT_EQ(notices.errorLists.size(), 1u);
    EXPECT_EQ(notices.errorLists[0]->lines, QStringList({"future.dat", "Invalid data in file, Data  1"}));
    EXPECT_TRUE(notices.errorLists[0]->shown);
}

TEST_F(ScheduleFile, EightBadRecordsStopTheLoadButSevenDoNot) {
    QByteArray seven, eight;
    for (int i = 0; i < 7; ++i)
        seven += quotedRecord("garbage");
    eight = seven + quotedRecord("garbage");
    const QByteArray good = quotedRecord("2002/05/03once09:00:00");

    writeFile("future.dat", seven + good);
    LoadFutureFile(ctx, "future.dat");
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(notices.errorLists.back()->lines.size(), 8);
    EXPECT_EQ(notices.errorLists.back()->lines.last(), "Invalid data in file, Data  7");

    writeFile("future.dat", eight + good);
    LoadFutureFile(ctx, "future.dat");
    EXPECT_EQ(rows().size(), 0);
    EXPECT_EQ(notices.errorLists.size(), 2u);
    EXPECT_EQ(notices.errorLists.back()->lines.mid(8),
              QStringList({"Invalid data in file, Data  8", "future.dat seems to be wrong format"}));
}

TEST_F(ScheduleFile, MissingOrUnreadableFileChangesNothing) {
    ctx.Bwklistbox1.ShowData("-", "2002/05/01-09:00:00", "", false);
    LoadFutureFile(ctx, "future.dat");
    // A schedule that cannot be read (here a folder) leaves the list as it was too.
    ASSERT_TRUE(QDir(ctx.m.strAppPath).mkdir("future.dat"));
    LoadFutureFile(ctx, "future.dat");
    EXPECT_EQ(rows().size(), 1);
    EXPECT_FALSE(ctx.m.blnTickOn);
}

TEST_F(ScheduleFile, UnknownPlayWordOfTheFirstRecordLeavesAnEmptyWord) {
    writeFile("future.dat", quotedRecord("2002/05/01xxxx09:00:00") + quotedRecord("2002/05/01repe09:00:00") +
                                quotedRecord("2002/05/01zzzz10:00:00"));
    LoadFutureFile(ctx, "future.dat");
    // The first fails (empty word); the third takes word and mark of the line before.
    EXPECT_EQ(today(), QStringList({"repeat 09:00:00", "repeat 10:00:00"}));
    EXPECT_EQ(notices.errorLists.at(0)->lines.size(), 2);
}

TEST_F(ScheduleFile, SaveAppendsByteExactRecordsAndShowsTheRowHighlighted) {
    ctx.m.strAlarmDate = "2002/05/01";
    ctx.form8.strEventPlay = "twic";
    ctx.form8.strEventTime = "08:30:00";
    ctx.form8.strEventMark = "=";
    SaveFutureFile(ctx, "Dentist");
    ctx.form8.strEventPlay = "once";
    ctx.form8.strEventMark = "-";
    SaveFutureFile(ctx, QString::fromUtf8("Café, noon"));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"Dentist2002/05/01twic08:30:00\"\r\n"
                                                 "\"Caf\xe9, noon2002/05/01once08:30:00\"\r\n"));
    // Equal date-time: the newer row goes above; both stay highlighted.
    EXPECT_EQ(rows().at(0), QString::fromUtf8("      -    2002/05/01-08:30:00        Café, noon"));
    EXPECT_EQ(ctx.Bwklistbox1.MultiSelectedItem(), 2);
}

TEST_F(ScheduleFile, AQuotedMessageIsKeptWithApostrophesSoTheEventSurvivesTheNextLoad) {
    ctx.m.strAlarmDate = "2002/05/09";
    ctx.form8 = {"08:30:00", "once", "-", false, false};
    SaveFutureFile(ctx, "Walk \"the\" dog");
    EXPECT_EQ(rows().at(0), "      -    2002/05/09-08:30:00        Walk 'the' dog");
    FileError error;
    ASSERT_TRUE(ctx.Bwklistbox1.SaveAllEventsToDisk(path("future.dat"), error));
    ctx.Bwklistbox1.ClearListView();
    LoadFutureFile(ctx, "future.dat");
    EXPECT_EQ(rows(), QStringList({"      -    2002/05/09-08:30:00        Walk 'the' dog"}));
    EXPECT_TRUE(notices.errorLists.empty());
}

TEST_F(ScheduleFile, SaveFailureIsReportedAndTheRowStillShows) {
    ctx.m.strAppPath = dir.path() + "/missing/folder/";
    ctx.m.strAlarmDate = "2002/05/01";
    ctx.form8 = {"08:30:00", "once", "-", false, false};
    SaveFutureFile(ctx, "");
    ASSERT_EQ(notices.warnings.size(), 1);
    EXPECT_EQ(notices.warnings[0], "Error occurred when saving alarm events to disk, data may be lost, Error #  76\r"
                                   "Path not found");
    EXPECT_EQ(rows().size(), 1);
}

TEST_F(ScheduleFile, SortingPutsNewRowsAheadOfEqualTimesAndSelectsThem) {
    Sorting(ctx, "09:00:00", "once", true);
    Sorting(ctx, "08:00:00", "twice", true);
    Sorting(ctx, "09:00:00", "thrice", true);
    Sorting(ctx, "10:00:00", "repeat", true);
    EXPECT_EQ(today(), QStringList({"twice 08:00:00", "thrice 09:00:00", "once 09:00:00", "repeat 10:00:00"}));
    EXPECT_EQ(ctx.lstData.listIndex(), 3);
    // A batch gives the same order as one-by-one inserts, and selects the last row given.
    Context& c = ctx;
    SortingBatch(c, {"once 09:00:00", "twice 07:00:00", "thrice 09:00:00"});
    EXPECT_EQ(today(), QStringList({"twice 07:00:00", "twice 08:00:00", "thrice 09:00:00", "once 09:00:00",
                                    "thrice 09:00:00", "once 09:00:00", "repeat 10:00:00"}));
    EXPECT_EQ(ctx.lstData.listIndex(), 2);
}
