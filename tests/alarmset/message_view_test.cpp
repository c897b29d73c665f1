#include "alarmset/day_list_delete.h"
#include "alarmset/form4_links.h"
#include "alarmset/message_view.h"
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

TEST_F(DayListTest, ViewOfTwoRowsSharingOneMessage) {
    rows({"once 08:30:00", "once 08:30:00"}, {"Tea at 08:30:00"});
    ViewMClick(ctx, view);
    EXPECT_EQ(view.text, "\r\n_08:30:00 AM  /  Tea\r\n_08:30:00 AM");
}

TEST_F(DayListTest, ViewStaysHiddenWithoutTodayRows) {
    rows({}, {"Orphan at 09:00:00"});
    ViewMClick(ctx, view);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(view.text, "");
    EXPECT_EQ(view.caption, "View Messages");
    EXPECT_TRUE(ctx.lstShadowMessage.isEmpty());
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
