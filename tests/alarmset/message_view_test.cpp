#include "alarmset/day_list_delete.h"
#include "alarmset/form4_links.h"
#include "alarmset/message_view.h"
#include "eventlist/delete_chooser.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct DayListTest : ::testing::Test, EngineFixture {
    Form4Links links;
    QStringList calls;
    MessageView view;

    DayListTest() {
        links.GetOldMessageToTextbox = [this](const QString& how) { calls.append("Form5:" + how); };
        links.GetAllMessages = [this](int count, const QList<int>& rows) {
            QString call = "Form12:" + QString::number(count);
            for (int row : rows)
                call += ' ' + QString::number(row);
            calls.append(call);
        };
        links.setDataListShaded = [this](bool shaded) { calls.append(shaded ? "shaded" : "unshaded"); };
    }
    void rows(const QStringList& data, const QStringList& messages) {
        for (const QString& row : data)
            ctx.lstData.addItem(row);
        for (const QString& row : messages)
            ctx.lstMessage.addItem(row);
    }
};

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

TEST_F(DayListTest, ViewShowsMarksTwelveHourTimesAndUsesEachMessageOnce) {
    rows({"once 00:05:00", "twice 08:30:00", "thrice 08:30:00", "repeat 13:05:00", "often 14:00:00"},
         {"Tea\r\nand cake at 08:30:00", "Call Bob at 13:05:00", "Stand up at 08:30:00"});
    ViewMClick(ctx, view);
    EXPECT_TRUE(view.visible);
    EXPECT_EQ(view.caption, "Hide Messages");
    EXPECT_EQ(view.text, "\r\n_12:05:00 AM"
                         "\r\n=08:30:00 AM  /  Tea\r\nand cake"
                         "\r\n#08:30:00 AM  /  Stand up"
                         "\r\n~01:05:00 PM  /  Call Bob"
                         "\r\n?02:00:00 PM");
    // The copy is used up, the messages themselves stay.
    EXPECT_TRUE(ctx.lstShadowMessage.isEmpty());
    EXPECT_EQ(ctx.lstMessage.count(), 3);

    ViewMClick(ctx, view);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(view.text, "");
    EXPECT_EQ(view.caption, "View Messages");
}

TEST_F(DayListTest, ViewStaysHiddenWithoutTodayRowsAndTwoRowsShareOneMessage) {
    rows({}, {"Tea at 08:30:00"});
    ViewMClick(ctx, view);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(view.caption, "View Messages");
    EXPECT_TRUE(ctx.lstShadowMessage.isEmpty());

    rows({"once 08:30:00", "once 08:30:00"}, {});
    ViewMClick(ctx, view);
    EXPECT_EQ(view.text, "\r\n_08:30:00 AM  /  Tea\r\n_08:30:00 AM");
}

TEST_F(DayListTest, DeleteTakesTheRowWithItsOnlyMessage) {
    rows({"once 08:30:00", "twice 08:30:00", "once 09:00:00"}, {"Tea at 08:30:00", "Other at 09:00:00"});
    ctx.lstData.setListIndex(1);
    ctx.m.strNextAlarm = "08:30:00";
    ctx.m.blnNeedNextAlarm = false;
    DeleteClick(ctx, links);
    EXPECT_EQ(ctx.lstData.items(), QStringList({"once 08:30:00", "once 09:00:00"}));
    EXPECT_EQ(ctx.lstMessage.items(), QStringList({"Other at 09:00:00"}));
    EXPECT_TRUE(ctx.m.blnNeedNextAlarm);
    EXPECT_TRUE(ctx.m.blnHaveAlarms);
    EXPECT_EQ(ctx.m.strNextAlarm, "");
    EXPECT_TRUE(calls.isEmpty());

    // No message of its time: only the row goes.
    ctx.lstData.setListIndex(0);
    DeleteClick(ctx, links);
    EXPECT_EQ(ctx.lstData.items(), QStringList({"once 09:00:00"}));
    EXPECT_EQ(ctx.lstMessage.count(), 1);
}

TEST_F(DayListTest, DeleteOfATimeWithTwoMessagesLeavesTheChoiceToForm12) {
    rows({"once 08:00:00", "once 08:30:00"}, {"A at 08:30:00", "B at 08:00:00", "C at 08:30:00"});
    ctx.lstData.setListIndex(1);
    DeleteClick(ctx, links);
    EXPECT_EQ(calls, QStringList({"shaded", "Form12:2 0 2"}));
    EXPECT_EQ(ctx.lstData.count(), 2);
    EXPECT_EQ(ctx.lstMessage.count(), 3);
}

TEST_F(DayListTest, DeleteWithoutSelectionRemovesNothingButRetakesTheHead) {
    rows({"once 08:00:00"}, {"A at 08:00:00"});
    ctx.lstData.setListIndex(-1);
    ctx.m.strNextAlarm = "08:00:00";
    ctx.m.strNextPlayTimes = "once";
    ctx.m.blnNeedNextAlarm = false;
    DeleteClick(ctx, links);
    EXPECT_EQ(ctx.lstData.count(), 1);
    EXPECT_EQ(ctx.lstMessage.count(), 1);
    EXPECT_TRUE(ctx.m.blnNeedNextAlarm);
    EXPECT_TRUE(ctx.m.blnHaveAlarms);
    EXPECT_EQ(ctx.m.strNextPlayTimes, "");
}

TEST_F(DayListTest, DoubleClickOpensTheMessagesOnlyWhenNothingIsInFront) {
    rows({"once 08:00:00"}, {});
    DataDblClick(ctx, links);
    EXPECT_TRUE(calls.isEmpty()); // no selected row
    ctx.lstData.setListIndex(0);
    ctx.m.lngTopWho = 157;
    DataDblClick(ctx, links);
    EXPECT_TRUE(calls.isEmpty());
    ctx.m.lngTopWho = 0;
    DataDblClick(ctx, links);
    EXPECT_EQ(calls, QStringList({"shaded", "Form5:DoubleClick"}));
}

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
