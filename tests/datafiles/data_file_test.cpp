#include "datafiles/data_file.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

QByteArray record(const QByteArray& line) {
    return '"' + line + "\"\r\n";
}

struct DataFileTest : ::testing::Test, EngineFixture {
    DataFileTest() {
        clock.set(2002, 5, 1, 12, 0, 0);
        ctx.touchForm4();
    }
};

} // namespace

TEST_F(DataFileTest, LoadMergesComingRowsAndDropsPassedOnesSilently) {
    writeFile("my.dat", record("twice 13:00:00") + record("once 12:00:00") + record("repeat 12:30:00") +
                            record("Dentist at 13:00:00") + record("Lunch at 11:00:00"));
    LoadClick(ctx, "my.dat");
    EXPECT_EQ(ctx.lstData.items(), QStringList({"repeat 12:30:00", "twice 13:00:00"}));
    // The first row into an empty list stands unselected; later ones leave the last inserted selected.
    EXPECT_EQ(ctx.lstData.listIndex(), 0);
    EXPECT_EQ(ctx.lstMessage.items(), QStringList({"Dentist at 13:00:00"}));
    EXPECT_TRUE(ctx.m.blnTickOn && ctx.m.blnNeedNextAlarm && ctx.m.blnHaveAlarms);
    EXPECT_TRUE(notices.shared.lines.isEmpty());

    // Loading again doubles every row.
    LoadClick(ctx, "my.dat");
    EXPECT_EQ(ctx.lstData.count(), 4);
    EXPECT_EQ(ctx.lstMessage.count(), 2);
}

TEST_F(DataFileTest, BadRecordsAreNumberedByPositionAndTheEighthStops) {
    QByteArray bytes = record("once 13:00:00") + record("twice 13:01:00") + record("thrice 13:02:00");
    for (int i = 0; i < 9; ++i)
        bytes += record("nonsense");
    writeFile("bad.dat", bytes);
    LoadClick(ctx, "bad.dat");
    EXPECT_EQ(ctx.lstData.count(), 3);
    ASSERT_EQ(notices.shared.lines.size(), 10);
    EXPECT_EQ(notices.shared.lines.first(), "bad.dat");
    EXPECT_EQ(notices.shared.lines.at(1), "Invalid data in file, Data  4");
    EXPECT_EQ(notices.shared.lines.at(8), "Invalid data in file, Data  11");
    EXPECT_EQ(notices.shared.lines.last(), "bad.dat seems to be wrong format");
    EXPECT_EQ(notices.beeps, 1);
}

TEST_F(DataFileTest, SevenBadRecordsDoNotStopALoadAndEachFileGetsItsNameAndBeep) {
    QByteArray bytes;
    for (int i = 0; i < 7; ++i)
        bytes += record("nonsense");
    writeFile("seven.dat", bytes + record("once 13:00:00"));
    writeFile("one.dat", record("nonsense") + record("twice 14:00:00"));
    LoadClick(ctx, "seven.dat");
    LoadClick(ctx, "one.dat");
    EXPECT_EQ(ctx.lstData.items(), QStringList({"once 13:00:00", "twice 14:00:00"}));
    // Each file starts its count afresh: one.dat's single bad record is not the eighth.
    ASSERT_EQ(notices.shared.lines.size(), 10);
    EXPECT_EQ(notices.shared.lines.at(0), "seven.dat");
    EXPECT_EQ(notices.shared.lines.at(7), "Invalid data in file, Data  7");
    EXPECT_EQ(notices.shared.lines.at(8), "one.dat");
    EXPECT_EQ(notices.shared.lines.at(9), "Invalid data in file, Data  1");
    EXPECT_EQ(notices.beeps, 2);
}

TEST_F(DataFileTest, MissingFileIsReportedAndChangesNothing) {
    LoadClick(ctx, "my");
    EXPECT_EQ(notices.warnings, QStringList({"my, file not found"}));
    EXPECT_FALSE(ctx.m.blnTickOn);
}

TEST_F(DataFileTest, SaveWritesBothListsAndLoadsBackOnAnotherDay) {
    ctx.lstData.addItem("repeat 18:00:00");
    ctx.lstData.addItem("once 19:00:00");
    ctx.lstMessage.addItem("Two\r\nlines, and a comma at 19:00:00");
    bool asked = false;
    SaveFileClick(ctx, "day.dat", [&](const QString&, const QString&) { asked = true; });
    EXPECT_FALSE(asked);
    EXPECT_EQ(readFile("day.dat"), QByteArray("\"repeat 18:00:00\"\r\n\"once 19:00:00\"\r\n"
                                              "\"Two\r\nlines, and a comma at 19:00:00\"\r\n"));
    // An existing name is not written but asked about.
    QString origin;
    SaveFileClick(ctx, "day.dat", [&](const QString& o, const QString&) { origin = o; });
    EXPECT_EQ(origin, "AlarmSet");

    ctx.lstData.clear();
    ctx.lstMessage.clear();
    clock.set(2002, 5, 9, 17, 0, 0);
    LoadClick(ctx, "day.dat");
    EXPECT_EQ(ctx.lstData.items(), QStringList({"repeat 18:00:00", "once 19:00:00"}));
    EXPECT_EQ(ctx.lstMessage.items(), QStringList({"Two\r\nlines, and a comma at 19:00:00"}));

    // Two empty lists give an empty file, which loads without a word.
    ctx.lstData.clear();
    ctx.lstMessage.clear();
    SaveFileClick(ctx, "empty.dat", {});
    EXPECT_EQ(QFileInfo(path("empty.dat")).size(), 0);
    ctx.m.blnTickOn = false;
    LoadClick(ctx, "empty.dat");
    EXPECT_TRUE(ctx.m.blnTickOn);
    EXPECT_TRUE(notices.warnings.isEmpty());
}
