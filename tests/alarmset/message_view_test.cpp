#include "alarmset/alarm_set_links.h"
#include "alarmset/day_list_delete.h"
#include "alarmset/message_view.h"
#include "eventlist/delete_chooser.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct DayListTest : ::testing::Test, EngineFixture {
    AlarmSetLinks links;
    QStringList calls;
    MessageView view;

    DayListTest() {
        links.openInputMessage = [this](const QString& how) { calls.append("InputMessageWindow:" + how); };
        links.chooseMessageToDelete = [this](int count, const QList<int>& rows) {
            QString call = "DeleteChooserWindow:" + QString::number(count);
            for (int row : rows)
                call += ' ' + QString::number(row);
            calls.append(call);
        };
        links.setTodayListShaded = [this](bool shaded) { calls.append(shaded ? "shaded" : "unshaded"); };
    }
    void rows(const QStringList& data, const QStringList& messages) {
        for (const QString& row : data)
            ctx.today.alarms.addItem(row);
        for (const QString& row : messages)
            ctx.today.messages.addItem(row);
    }
};

struct DeleteChooserTest : ::testing::Test, EngineFixture {
    DeleteChooserTest() {
        ctx.touchAlarmSet();
        ctx.today.alarms.addItem("once 09:00:00");
        ctx.today.alarms.addItem("twice 10:00:00");
        ctx.today.messages.addItem("Coffee at 10:00:00");
        ctx.today.messages.addItem("Other at 09:00:00");
        ctx.today.messages.addItem("Call Bob at 10:00:00");
        ctx.today.alarms.selectOnly(1);
        ctx.tick.nextAlarm = "09:00:00";
        ctx.tick.nextPlayWord = "once";
    }
    DeleteChooser chooser;
    QString messageText;
    QString informationLabel = "More than one message found, which one do you like to delete?";
};

} // namespace

TEST_F(DayListTest, ViewShowsMarksTwelveHourTimesAndUsesEachMessageOnce) {
    rows({"once 00:05:00", "twice 08:30:00", "thrice 08:30:00", "repeat 13:05:00", "often 14:00:00"},
         {"Tea\r\nand cake at 08:30:00", "Call Bob at 13:05:00", "Stand up at 08:30:00"});
    toggleMessageView(ctx, view);
    EXPECT_TRUE(view.visible);
    EXPECT_EQ(view.caption, "Hide Messages");
    EXPECT_EQ(view.text, "\r\n_12:05:00 AM"
                         "\r\n=08:30:00 AM  /  Tea\r\nand cake"
                         "\r\n#08:30:00 AM  /  Stand up"
                         "\r\n~01:05:00 PM  /  Call Bob"
                         "\r\n?02:00:00 PM");
    // The copy is used up, the messages themselves stay.
    EXPECT_TRUE(ctx.today.shadowMessages.isEmpty());
    EXPECT_EQ(ctx.today.messages.count(), 3);

    toggleMessageView(ctx, view);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(view.text, "");
    EXPECT_EQ(view.caption, "View Messages");
}

TEST_F(DayListTest, ViewStaysHiddenWithoutTodayRowsAndTwoRowsShareOneMessage) {
    rows({}, {"Tea at 08:30:00"});
    toggleMessageView(ctx, view);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(view.caption, "View Messages");
    EXPECT_TRUE(ctx.today.shadowMessages.isEmpty());

    rows({"once 08:30:00", "once 08:30:00"}, {});
    toggleMessageView(ctx, view);
    EXPECT_EQ(view.text, "\r\n_08:30:00 AM  /  Tea\r\n_08:30:00 AM");
}

TEST_F(DayListTest, ViewShowsWhatFitsOfAHugeMessageAndTheMessageStaysWhole) {
    const QString huge = QString(ListModel::kShownLength, 'a') + QString(200000, 'b');
    rows({"once 08:30:00"}, {huge + " at 08:30:00"});
    toggleMessageView(ctx, view);
    EXPECT_EQ(view.text, "\r\n_08:30:00 AM  /  " + QString(ListModel::kShownLength, 'a'));
    EXPECT_EQ(ctx.today.messages.item(0), huge + " at 08:30:00");
}

TEST_F(DayListTest, DeleteTakesTheRowWithItsOnlyMessage) {
    rows({"once 08:30:00", "twice 08:30:00", "once 09:00:00"}, {"Tea at 08:30:00", "Other at 09:00:00"});
    ctx.today.alarms.selectOnly(1);
    ctx.tick.nextAlarm = "08:30:00";
    ctx.tick.needNextAlarm = false;
    deleteSelectedRow(ctx, links);
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 08:30:00", "once 09:00:00"}));
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Other at 09:00:00"}));
    EXPECT_TRUE(ctx.tick.needNextAlarm);
    EXPECT_TRUE(ctx.tick.haveAlarms);
    EXPECT_EQ(ctx.tick.nextAlarm, "");
    EXPECT_TRUE(calls.isEmpty());

    // No message of its time: only the row goes.
    ctx.today.alarms.selectOnly(0);
    deleteSelectedRow(ctx, links);
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 09:00:00"}));
    EXPECT_EQ(ctx.today.messages.count(), 1);
}

TEST_F(DayListTest, DeleteOfATimeWithTwoMessagesLeavesTheChoiceToTheDeleteChooser) {
    rows({"once 08:00:00", "once 08:30:00"}, {"A at 08:30:00", "B at 08:00:00", "C at 08:30:00"});
    ctx.today.alarms.selectOnly(1);
    deleteSelectedRow(ctx, links);
    EXPECT_EQ(calls, QStringList({"shaded", "DeleteChooserWindow:2 0 2"}));
    EXPECT_EQ(ctx.today.alarms.count(), 2);
    EXPECT_EQ(ctx.today.messages.count(), 3);
}

TEST_F(DayListTest, DeleteWithoutSelectionRemovesNothingButRetakesTheHead) {
    rows({"once 08:00:00"}, {"A at 08:00:00"});
    ctx.today.alarms.selectOnly(-1);
    ctx.tick.nextAlarm = "08:00:00";
    ctx.tick.nextPlayWord = "once";
    ctx.tick.needNextAlarm = false;
    deleteSelectedRow(ctx, links);
    EXPECT_EQ(ctx.today.alarms.count(), 1);
    EXPECT_EQ(ctx.today.messages.count(), 1);
    EXPECT_TRUE(ctx.tick.needNextAlarm);
    EXPECT_TRUE(ctx.tick.haveAlarms);
    EXPECT_EQ(ctx.tick.nextPlayWord, "");
}

TEST_F(DayListTest, DoubleClickOpensTheMessagesOnlyWhenNothingIsInFront) {
    rows({"once 08:00:00"}, {});
    openRowMessages(ctx, links);
    EXPECT_TRUE(calls.isEmpty()); // no selected row
    ctx.today.alarms.selectOnly(0);
    ctx.front.claimant = 157;
    openRowMessages(ctx, links);
    EXPECT_TRUE(calls.isEmpty());
    ctx.front.claimant = 0;
    openRowMessages(ctx, links);
    EXPECT_EQ(calls, QStringList({"shaded", "InputMessageWindow:DoubleClick"}));
}

TEST_F(DeleteChooserTest, BrowsingGoesRoundAndDeleteTakesTheMessageOnDisplay) {
    ASSERT_TRUE(chooser.chooseMessageToDelete(ctx, 2, {0, 2}, messageText));
    EXPECT_EQ(messageText, "Coffee");
    chooser.showNext(ctx, messageText, informationLabel);
    EXPECT_EQ(messageText, "Call Bob");
    chooser.showNext(ctx, messageText, informationLabel);
    EXPECT_EQ(messageText, "Coffee");
    chooser.showNext(ctx, messageText, informationLabel);
    EXPECT_EQ(messageText, "Call Bob");

    chooser.remove(ctx);
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Coffee at 10:00:00", "Other at 09:00:00"}));
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 09:00:00"}));
    EXPECT_TRUE(ctx.tick.needNextAlarm);
    EXPECT_TRUE(ctx.tick.haveAlarms);
    EXPECT_TRUE(ctx.tick.nextAlarm.isEmpty() && ctx.tick.nextPlayWord.isEmpty());
    EXPECT_EQ(notices.beeps, 0);
}

TEST_F(DeleteChooserTest, WhenTheAlarmRangMeanwhileNothingIsRemoved) {
    ASSERT_TRUE(chooser.chooseMessageToDelete(ctx, 2, {0, 2}, messageText));
    // The tick took the row away, and with it the current row.
    ctx.today.alarms.removeItem(1);
    chooser.showNext(ctx, messageText, informationLabel);
    EXPECT_EQ(informationLabel, "detected alarm events were executed, please press ''Cancel'' to close!");
    EXPECT_EQ(messageText, "Coffee");
    EXPECT_EQ(notices.beeps, 1);
    chooser.remove(ctx);
    EXPECT_EQ(ctx.today.messages.count(), 3);
    EXPECT_EQ(ctx.today.alarms.count(), 1);

    // With no current row from the start the window does not show.
    QString untouched = "untouched";
    EXPECT_FALSE(DeleteChooser().chooseMessageToDelete(ctx, 2, {0, 2}, untouched));
    EXPECT_EQ(untouched, "untouched");
}

TEST_F(DeleteChooserTest, RowNumbersThatNameNoRowArePassedOverAndTheLastRowLeavesNoAlarms) {
    ctx.today.alarms.removeItem(0);
    ctx.today.alarms.selectOnly(0);
    ASSERT_TRUE(chooser.chooseMessageToDelete(ctx, 2, {0, 7}, messageText));
    chooser.showNext(ctx, messageText, informationLabel);
    EXPECT_EQ(messageText, "");
    chooser.remove(ctx);
    EXPECT_EQ(ctx.today.messages.count(), 3);
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
    EXPECT_FALSE(ctx.tick.haveAlarms);
}
