#include "alarmset/add_click.h"
#include "alarmset/form4_links.h"
#include "alarmset/time_input.h"
#include "engine/alarm_tick.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct AddClickTest : ::testing::Test, EngineFixture {
    Form4Links links;
    QStringList calls; // what the procedure asked of the windows around it
    EntryControls entry;

    AddClickTest() {
        clock.set(2002, 5, 1, 8, 0, 0);
        ctx.touchForm4();
        links.GetOldMessageToTextbox = [this](const QString& how) { calls.append("Form5:" + how); };
        links.setDataListShaded = [this](bool shaded) { calls.append(shaded ? "shaded" : "unshaded"); };
        links.showEventList = [this] { calls.append("eventlist"); };
    }

    void enter(const QString& hour, const QString& minute, const QString& second, const QString& am) {
        entry.cbHour = hour;
        entry.cbMin = minute;
        entry.cbSec = second;
        entry.txtAm = am;
    }
    // Adds and answers the row it left selected, or the empty text.
    QString add() {
        AddClick(ctx, entry, ctx.strTimesOfPlay, links);
        return ctx.lstData.item(ctx.lstData.listIndex());
    }
};

struct TimeInputTest : ::testing::Test, EngineFixture {};

QStringList twoDigitItems(int from, int to) {
    QStringList items;
    for (int n = from; n <= to; ++n)
        items.append(QString::number(n).rightJustified(2, '0'));
    return items;
}

} // namespace

TEST_F(AddClickTest, TwelveHourEntryBecomesTheTwentyFourHourRowAndShortTextsArePadded) {
    clock.set(2002, 5, 1, 0, 0, 0);
    const struct {
        const char* hour;
        const char* am;
        const char* row;
    } table[] = {
        {"12", "AM", "once 00:05:00"}, {"01", "AM", "once 01:05:00"}, {"11", "AM", "once 11:05:00"},
        {"12", "PM", "once 12:05:00"}, {"01", "PM", "once 13:05:00"}, {"7", "PM", "once 19:05:00"},
        {"11", "PM", "once 23:05:00"},
    };
    for (const auto& t : table) {
        enter(t.hour, "05", "00", t.am);
        EXPECT_EQ(add(), QString(t.row)) << t.hour << ' ' << t.am;
    }
    // Short texts come back padded in the controls.
    enter("7", "5", "9", "PM");
    EXPECT_EQ(add(), "once 19:05:09");
    EXPECT_EQ(entry.cbHour + entry.cbMin + entry.cbSec, "070509");
    EXPECT_EQ(ctx.form8.strEventTime, "19:05:09");
    EXPECT_EQ(ctx.lstData.count(), 8);
    EXPECT_TRUE(notices.warnings.isEmpty());
}

TEST_F(AddClickTest, RefusesEmptyAndOutOfRangeFields) {
    const struct {
        const char *hour, *minute, *second;
    } refused[] = {{"", "05", "00"},   {"08", "", "00"},   {"08", "05", ""},   {"00", "05", "00"},
                   {"13", "05", "00"}, {"08", "60", "00"}, {"08", "05", "60"}, {"x", "05", "00"}};
    for (const auto& r : refused) {
        enter(r.hour, r.minute, r.second, "PM");
        add();
    }
    EXPECT_EQ(notices.warnings, QStringList(std::size(refused), "Invalid input"));
    EXPECT_EQ(notices.beeps, 0);
    EXPECT_TRUE(ctx.lstData.isEmpty());
    EXPECT_FALSE(ctx.m.blnTickOn);

    enter("08", "59", "59", "PM");
    EXPECT_EQ(add(), "once 20:59:59");
}

TEST_F(AddClickTest, NoSecondModeOverwritesTheSecondsBeforeAnyTest) {
    ctx.m.blnNoSecond = true;
    enter("09", "30", "", "AM");
    EXPECT_EQ(add(), "once 09:30:00");
    enter("09", "31", "77", "AM");
    EXPECT_EQ(add(), "once 09:31:00");
    EXPECT_EQ(entry.cbSec, "00");
    EXPECT_EQ(entry.cbSecIndex, 0);
    EXPECT_TRUE(notices.warnings.isEmpty());
}

TEST_F(AddClickTest, TodayRefusesAPassedTimeButAcceptsThePresentSecond) {
    clock.set(2002, 5, 1, 20, 30, 15);
    enter("8", "30", "14", "PM");
    add();
    EXPECT_EQ(notices.warnings, QStringList({"Time was passed or next day"}));
    EXPECT_EQ(notices.beeps, 1);
    EXPECT_TRUE(ctx.lstData.isEmpty());
    EXPECT_FALSE(ctx.m.blnHaveAlarms);
    EXPECT_EQ(entry.cbHour, "08"); // padded texts stay
    EXPECT_EQ(ctx.form8.strEventTime, "20:30:14");

    enter("08", "30", "15", "PM");
    EXPECT_EQ(add(), "once 20:30:15");
    EXPECT_TRUE(ctx.m.blnHaveAlarms);
    EXPECT_TRUE(ctx.m.blnTickOn);
    EXPECT_TRUE(ctx.m.blnNeedNextAlarm);
    EXPECT_EQ(notices.warnings.size(), 1);
}

TEST_F(AddClickTest, AnotherDayGoesToTheScheduleWhateverTheTime) {
    clock.set(2002, 5, 1, 20, 0, 0);
    for (const char* day : {"2002/04/30", "2002/05/02"}) {
        ctx.m.strAlarmDate = day;
        enter("01", "00", "00", "AM");
        add();
    }
    EXPECT_TRUE(notices.warnings.isEmpty());
    EXPECT_TRUE(ctx.lstData.isEmpty());
    EXPECT_FALSE(ctx.m.blnHaveAlarms);
    EXPECT_EQ(readFile("future.dat"), "\"2002/04/30once01:00:00\"\r\n\"2002/05/02once01:00:00\"\r\n");
    EXPECT_EQ(ctx.Bwklistbox1.lstMain.count(), 2);
    EXPECT_EQ(calls, QStringList({"eventlist", "eventlist"}));
}

TEST_F(AddClickTest, PlayWordIsRememberedUntilAnotherIsChosen) {
    clock.set(2002, 5, 1, 0, 0, 0);
    enter("01", "00", "00", "AM");
    EXPECT_EQ(add(), "once 01:00:00");

    entry.cbPlayTimesIndex = 2;
    entry.cbPlayTimesText = "thrice";
    enter("02", "00", "00", "AM");
    EXPECT_EQ(add(), "thrice 02:00:00");

    entry.cbPlayTimesIndex = -1;
    entry.cbPlayTimesText.clear();
    enter("03", "00", "00", "AM");
    EXPECT_EQ(add(), "thrice 03:00:00");

    // The schedule takes the 4-letter form and the mark of the remembered word.
    ctx.m.strAlarmDate = "2002/05/09";
    add();
    EXPECT_EQ(ctx.form8.strEventPlay, "thri");
    EXPECT_EQ(ctx.form8.strEventMark, "#");
}

TEST_F(AddClickTest, WithMessageTodayShadesTheListAndOpensTheMessageBox) {
    ctx.m.blnWithMessage = true;
    enter("09", "00", "00", "AM");
    add();
    EXPECT_EQ(calls, QStringList({"shaded", "Form5:"}));

    // Another window in front: the row is added, nothing opens.
    calls.clear();
    ctx.m.lngTopWho = 13;
    enter("10", "00", "00", "AM");
    add();
    EXPECT_TRUE(calls.isEmpty());
    EXPECT_EQ(ctx.lstData.count(), 2);

    // Another day: Form5 saves it later, so nothing is written now.
    ctx.m.lngTopWho = 0;
    ctx.m.strAlarmDate = "2002/05/02";
    add();
    EXPECT_EQ(calls, QStringList({"eventlist", "Form5:"}));
    EXPECT_FALSE(QFile::exists(path("future.dat")));
}

TEST_F(AddClickTest, AlarmAddedForTwoSecondsAheadFiresOnTheTick) {
    clock.set(2002, 5, 1, 21, 15, 30, 300);
    enter("9", "15", "32", "PM");
    EXPECT_EQ(add(), "once 21:15:32");

    AlarmTick tick(ctx);
    const QDateTime end = clock.now().addSecs(4);
    while (clock.now() < end) {
        tick.Timer1_Timer();
        clock.advanceMs(800);
    }
    EXPECT_EQ(sound.played, QStringList({"once|" + ctx.m.strSongName}));
    EXPECT_TRUE(ctx.lstData.isEmpty());
    EXPECT_FALSE(ctx.m.blnHaveAlarms);
}

TEST_F(TimeInputTest, KeysPassDigitsAndBackspaceOnlyAndReleaseWipesAThirdCharacter) {
    for (QChar key : QString("0123456789\b"))
        EXPECT_TRUE(TimeBoxKeyPress(ctx, key)) << int(key.unicode());
    EXPECT_EQ(notices.beeps, 0);
    for (QChar key : QString("a: -\x1b\x16"))
        EXPECT_FALSE(TimeBoxKeyPress(ctx, key)) << int(key.unicode());
    EXPECT_EQ(notices.beeps, 6);
    const std::pair<QString, QString> released[] = {{"12", "12"}, {"123", ""}, {"pasted", ""}};
    for (auto [text, left] : released) {
        TimeBoxKeyUp(ctx, text);
        EXPECT_EQ(text, left);
    }
    EXPECT_EQ(notices.beeps, 8);
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
