#include "eventlist/delete_chooser.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct DeleteChooserTest : ::testing::Test, EngineFixture {
    DeleteChooserTest() {
        ctx.touchForm4();
        ctx.lstData.addItem("once 09:00:00");
        ctx.lstData.addItem("twice 10:00:00");
        ctx.lstMessage.addItem("Coffee at 10:00:00");
        ctx.lstMessage.addItem("Other at 09:00:00");
        ctx.lstMessage.addItem("Call Bob at 10:00:00");
        ctx.lstData.setListIndex(1);
        ctx.m.strNextAlarm = "09:00:00";
        ctx.m.strNextPlayTimes = "once";
    }
    DeleteChooser chooser;
    QString txtMessageIs;
    QString lblInformation = "More than one message found, which one do you like to delete?";
};

} // namespace

TEST_F(DeleteChooserTest, BrowsingGoesRoundAndDeleteTakesTheMessageOnDisplay) {
    ASSERT_TRUE(chooser.GetAllMessages(ctx, 2, {0, 2}, txtMessageIs));
    EXPECT_EQ(txtMessageIs, "Coffee");
    chooser.ShowMessages(ctx, txtMessageIs, lblInformation);
    EXPECT_EQ(txtMessageIs, "Call Bob");
    chooser.ShowMessages(ctx, txtMessageIs, lblInformation);
    EXPECT_EQ(txtMessageIs, "Coffee");
    chooser.ShowMessages(ctx, txtMessageIs, lblInformation);
    EXPECT_EQ(txtMessageIs, "Call Bob");

    chooser.Delete(ctx);
    EXPECT_EQ(ctx.lstMessage.items(), QStringList({"Coffee at 10:00:00", "Other at 09:00:00"}));
    EXPECT_EQ(ctx.lstData.items(), QStringList({"once 09:00:00"}));
    EXPECT_TRUE(ctx.m.blnNeedNextAlarm);
    EXPECT_TRUE(ctx.m.blnHaveAlarms);
    EXPECT_TRUE(ctx.m.strNextAlarm.isEmpty() && ctx.m.strNextPlayTimes.isEmpty());
    EXPECT_EQ(notices.beeps, 0);
}

TEST_F(DeleteChooserTest, WhenTheAlarmRangMeanwhileNothingIsRemoved) {
    ASSERT_TRUE(chooser.GetAllMessages(ctx, 2, {0, 2}, txtMessageIs));
    // The tick took the row away, and with it the current row.
    ctx.lstData.removeItem(1);
    chooser.ShowMessages(ctx, txtMessageIs, lblInformation);
    EXPECT_EQ(lblInformation, "detected alarm events were executed, please press ''Cancel'' to close!");
    EXPECT_EQ(txtMessageIs, "Coffee");
    EXPECT_EQ(notices.beeps, 1);
    chooser.Delete(ctx);
    EXPECT_EQ(ctx.lstMessage.count(), 3);
    EXPECT_EQ(ctx.lstData.count(), 1);

    // With no current row from the start the window does not show.
    QString untouched = "untouched";
    EXPECT_FALSE(DeleteChooser().GetAllMessages(ctx, 2, {0, 2}, untouched));
    EXPECT_EQ(untouched, "untouched");
}

TEST_F(DeleteChooserTest, RowNumbersThatNameNoRowArePassedOverAndTheLastRowLeavesNoAlarms) {
    ctx.lstData.removeItem(0);
    ctx.lstData.setListIndex(0);
    ASSERT_TRUE(chooser.GetAllMessages(ctx, 2, {0, 7}, txtMessageIs));
    chooser.ShowMessages(ctx, txtMessageIs, lblInformation);
    EXPECT_EQ(txtMessageIs, "");
    chooser.Delete(ctx);
    EXPECT_EQ(ctx.lstMessage.count(), 3);
    EXPECT_TRUE(ctx.lstData.isEmpty());
    EXPECT_FALSE(ctx.m.blnHaveAlarms);
}
