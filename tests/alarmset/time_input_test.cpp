#include "alarmset/time_input.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct TimeInputTest : ::testing::Test, EngineFixture {};

QStringList twoDigitItems(int from, int to) {
    QStringList items;
    for (int n = from; n <= to; ++n)
        items.append(QString::number(n).rightJustified(2, '0'));
    return items;
}

} // namespace

TEST_F(TimeInputTest, KeyPressPassesDigitsAndBackspaceOnly) {
    for (QChar key : QString("0123456789\b"))
        EXPECT_TRUE(TimeBoxKeyPress(ctx, key)) << int(key.unicode());
    EXPECT_EQ(notices.beeps, 0);
    for (QChar key : QString("a: -\x1b\x16"))
        EXPECT_FALSE(TimeBoxKeyPress(ctx, key)) << int(key.unicode());
    EXPECT_EQ(notices.beeps, 6);
}

TEST_F(TimeInputTest, KeyReleaseWipesAThirdCharacter) {
    QString text = "12";
    TimeBoxKeyUp(ctx, text);
    EXPECT_EQ(text, "12");
    EXPECT_EQ(notices.beeps, 0);
    text = "123";
    TimeBoxKeyUp(ctx, text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(notices.beeps, 1);
    text = "pasted";
    TimeBoxKeyUp(ctx, text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(notices.beeps, 2);
}

TEST_F(TimeInputTest, FirstDropDownCompletesTheSixtyAndNoLaterOneAddsMore) {
    QStringList minutes = twoDigitItems(0, 9);
    MinDropDown(minutes);
    ASSERT_EQ(minutes.size(), 60);
    EXPECT_EQ(minutes.at(10), "10");
    EXPECT_EQ(minutes.last(), "59");
    MinDropDown(minutes);
    EXPECT_EQ(minutes.size(), 60);

    QStringList seconds = twoDigitItems(0, 9);
    SecDropDown(seconds);
    SecDropDown(seconds);
    EXPECT_EQ(seconds, minutes);
}

TEST_F(TimeInputTest, AnotherDaySwapsTheDateColoursAndTodayRestoresThem) {
    clock.set(2002, 5, 1, 23, 59, 0);
    const QColor fore(Qt::darkBlue), back(Qt::white);
    DateLabel label;
    DateClick(ctx, QDate(2002, 4, 3), fore, back, label);
    EXPECT_EQ(ctx.m.strAlarmDate, "2002/04/03");
    EXPECT_EQ(label.caption, "2002/04/03");
    EXPECT_EQ(label.fore, back);
    EXPECT_EQ(label.back, fore);

    DateClick(ctx, QDate(2002, 5, 1), fore, back, label);
    EXPECT_EQ(label.caption, "2002/05/01");
    EXPECT_EQ(label.fore, fore);
    EXPECT_EQ(label.back, back);

    // Past midnight the chosen day is no longer today.
    clock.set(2002, 5, 2, 0, 0, 1);
    DateClick(ctx, QDate(2002, 5, 1), fore, back, label);
    EXPECT_EQ(label.fore, back);
}
