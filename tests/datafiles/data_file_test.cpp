#include "datafiles/data_file.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct DataFileTest : ::testing::Test, EngineFixture {
    DataFileTest() {
        clock.set(2002, 5, 1, 12, 0, 0);
        ctx.touchAlarmSet();
    }
};

} // namespace

// Saving, the overwrite question, a load on another day and a missing file are seen through the chooser in
// ChooserRoundTripTest.
TEST_F(DataFileTest, LoadMergesComingRowsAndDropsPassedOnesSilently) {
    writeFile("my.dat", quotedRecord("twice 13:00:00") + quotedRecord("once 12:00:00") +
                            quotedRecord("repeat 12:30:00") + quotedRecord("Dentist at 13:00:00") +
                            quotedRecord("Lunch at 11:00:00"));
    loadDataFile(ctx, "my.dat");
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"repeat 12:30:00", "twice 13:00:00"}));
    // The first row into an empty list stands unselected; later ones leave the last inserted selected.
    EXPECT_EQ(ctx.today.alarms.currentIndex(), 0);
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Dentist at 13:00:00"}));
    EXPECT_TRUE(ctx.tick.on && ctx.tick.needNextAlarm && ctx.tick.haveAlarms);
    EXPECT_TRUE(notices.shared.lines.isEmpty());
}

TEST_F(DataFileTest, BadRecordsAreNumberedByPositionInEachFileAndTheEighthStops) {
    const QByteArray seven = quotedRecord("nonsense").repeated(7);
    writeFile("seven.dat", seven + quotedRecord("once 13:00:00"));
    writeFile("one.dat", quotedRecord("nonsense") + quotedRecord("twice 14:00:00"));
    writeFile("bad.dat", quotedRecord("once 15:00:00") + quotedRecord("twice 15:01:00") +
                             quotedRecord("thrice 15:02:00") + seven + quotedRecord("nonsense") +
                             quotedRecord("nonsense") + quotedRecord("once 16:00:00"));
    for (const char* name : {"seven.dat", "one.dat", "bad.dat"})
        loadDataFile(ctx, name);
    // Seven bad records do not stop a load, and each file starts its count afresh.
    EXPECT_EQ(ctx.today.alarms.items(),
              QStringList({"once 13:00:00", "twice 14:00:00", "once 15:00:00", "twice 15:01:00", "thrice 15:02:00"}));
    const QStringList& lines = notices.shared.lines;
    ASSERT_EQ(lines.size(), 20);
    EXPECT_EQ(lines.mid(0, 2), QStringList({"seven.dat", "Invalid data in file, Data  1"}));
    EXPECT_EQ(lines.mid(7, 3),
              QStringList({"Invalid data in file, Data  7", "one.dat", "Invalid data in file, Data  1"}));
    EXPECT_EQ(lines.mid(10, 2), QStringList({"bad.dat", "Invalid data in file, Data  4"}));
    EXPECT_EQ(lines.mid(18), QStringList({"Invalid data in file, Data  11", "bad.dat seems to be wrong format"}));
    EXPECT_EQ(notices.beeps, 3);
}

TEST_F(DataFileTest, SaveRefusesWhatTheFileCannotHoldAndEmptyListsLoadWithoutAWord) {
    // A message the file cannot hold leaves nothing behind but a warning that names it.
    ctx.today.messages.addItem(QString::fromUtf8("Call 李 at 19:00:00"));
    saveDataFile(ctx, "han.dat", {});
    EXPECT_FALSE(QFileInfo::exists(path("han.dat")));
    EXPECT_EQ(notices.warnings.takeLast(), QString::fromUtf8("These characters cannot be stored: 李"));

    // Two empty lists give an empty file, which loads without a word.
    ctx.today.messages.clear();
    saveDataFile(ctx, "empty.dat", {});
    EXPECT_EQ(QFileInfo(path("empty.dat")).size(), 0);
    ctx.tick.on = false;
    loadDataFile(ctx, "empty.dat");
    EXPECT_EQ(std::tuple(ctx.tick.on, notices.warnings.isEmpty()), std::tuple(true, true));
}
