#include "alarmset/add_entry.h"
#include "alarmset/alarm_set_links.h"
#include "alarmset/time_input.h"
#include "engine/alarm_tick.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct AddEntryTest : ::testing::Test, EngineFixture {
    AlarmSetLinks links;
    QStringList calls; // what the procedure asked of the windows around it
    EntryControls entry;

    AddEntryTest() {
        clock.set(2002, 5, 1, 8, 0, 0);
        ctx.touchAlarmSet();
        links.openInputMessage = [this](const QString& how) { calls.append("InputMessageWindow:" + how); };
        links.setTodayListShaded = [this](bool shaded) { calls.append(shaded ? "shaded" : "unshaded"); };
        links.showEventList = [this] { calls.append("eventlist"); };
    }

    void enter(const QString& hour, const QString& minute, const QString& second, const QString& am) {
        entry.hourBox = hour;
        entry.minuteBox = minute;
        entry.secondBox = second;
        entry.amPm = am;
    }
    // Adds and answers the row it left selected, or the empty text.
    QString add() {
        addEntry(ctx, entry, ctx.entry.lastPlayWord, links);
        return ctx.today.alarms.item(ctx.today.alarms.currentIndex());
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

TEST_F(AddEntryTest, TwelveHourEntryBecomesTheTwentyFourHourRowAndShortTextsArePadded) {
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
    EXPECT_EQ(entry.hourBox + entry.minuteBox + entry.secondBox, "070509");
    EXPECT_EQ(ctx.newEvent.time, "19:05:09");
    EXPECT_EQ(ctx.today.alarms.count(), 8);
    EXPECT_TRUE(notices.warnings.isEmpty());
}

TEST_F(AddEntryTest, RefusesEmptyAndOutOfRangeFields) {
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
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
    EXPECT_FALSE(ctx.tick.on);

    enter("08", "59", "59", "PM");
    EXPECT_EQ(add(), "once 20:59:59");
}

TEST_F(AddEntryTest, NoSecondModeOverwritesTheSecondsBeforeAnyTest) {
    ctx.options.noSecond = true;
    enter("09", "30", "", "AM");
    EXPECT_EQ(add(), "once 09:30:00");
    enter("09", "31", "77", "AM");
    EXPECT_EQ(add(), "once 09:31:00");
    EXPECT_EQ(entry.secondBox, "00");
    EXPECT_EQ(entry.secondIndex, 0);
    EXPECT_TRUE(notices.warnings.isEmpty());
}

TEST_F(AddEntryTest, TodayRefusesAPassedTimeButAcceptsThePresentSecond) {
    clock.set(2002, 5, 1, 20, 30, 15);
    enter("8", "30", "14", "PM");
    add();
    EXPECT_EQ(notices.warnings, QStringList({"Time was passed or next day"}));
    EXPECT_EQ(notices.beeps, 1);
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
    EXPECT_FALSE(ctx.tick.haveAlarms);
    EXPECT_EQ(entry.hourBox, "08"); // padded texts stay
    EXPECT_EQ(ctx.newEvent.time, "20:30:14");

    enter("08", "30", "15", "PM");
    EXPECT_EQ(add(), "once 20:30:15");
    EXPECT_TRUE(ctx.tick.haveAlarms);
    EXPECT_TRUE(ctx.tick.on);
    EXPECT_TRUE(ctx.tick.needNextAlarm);
    EXPECT_EQ(notices.warnings.size(), 1);
}

TEST_F(AddEntryTest, AnotherDayGoesToTheScheduleWhateverTheTime) {
    clock.set(2002, 5, 1, 20, 0, 0);
    for (const char* day : {"2002/04/30", "2002/05/02"}) {
        ctx.entry.date = day;
        enter("01", "00", "00", "AM");
        add();
    }
    EXPECT_TRUE(notices.warnings.isEmpty());
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
    EXPECT_FALSE(ctx.tick.haveAlarms);
    EXPECT_EQ(readFile("future.dat"), "\"2002/04/30once01:00:00\"\r\n\"2002/05/02once01:00:00\"\r\n");
    EXPECT_EQ(ctx.eventList.rows.count(), 2);
    EXPECT_EQ(calls, QStringList({"eventlist", "eventlist"}));
}

TEST_F(AddEntryTest, PlayWordIsRememberedUntilAnotherIsChosen) {
    clock.set(2002, 5, 1, 0, 0, 0);
    enter("01", "00", "00", "AM");
    EXPECT_EQ(add(), "once 01:00:00");

    entry.playCountIndex = 2;
    entry.playCountText = "thrice";
    enter("02", "00", "00", "AM");
    EXPECT_EQ(add(), "thrice 02:00:00");

    entry.playCountIndex = -1;
    entry.playCountText.clear();
    enter("03", "00", "00", "AM");
    EXPECT_EQ(add(), "thrice 03:00:00");

    // The schedule takes the 4-letter form and the mark of the remembered word.
    ctx.entry.date = "2002/05/09";
    add();
    EXPECT_EQ(ctx.newEvent.playWord, "thri");
    EXPECT_EQ(ctx.newEvent.mark, "#");
}

TEST_F(AddEntryTest, WithMessageTodayShadesTheListAndOpensTheMessageBox) {
    ctx.entry.withMessage = true;
    enter("09", "00", "00", "AM");
    add();
    EXPECT_EQ(calls, QStringList({"shaded", "InputMessageWindow:"}));

    // Another window in front: the row is added, nothing opens.
    calls.clear();
    ctx.front.claimant = 13;
    enter("10", "00", "00", "AM");
    add();
    EXPECT_TRUE(calls.isEmpty());
    EXPECT_EQ(ctx.today.alarms.count(), 2);

    // Another day: InputMessageWindow saves it later, so nothing is written now.
    ctx.front.claimant = 0;
    ctx.entry.date = "2002/05/02";
    add();
    EXPECT_EQ(calls, QStringList({"eventlist", "InputMessageWindow:"}));
    EXPECT_FALSE(QFile::exists(path("future.dat")));
}

TEST_F(AddEntryTest, AlarmAddedForTwoSecondsAheadFiresOnTheTick) {
    clock.set(2002, 5, 1, 21, 15, 30, 300);
    enter("9", "15", "32", "PM");
    EXPECT_EQ(add(), "once 21:15:32");

    AlarmTick tick(ctx);
    const QDateTime end = clock.now().addSecs(4);
    while (clock.now() < end) {
        tick.onTick();
        clock.advanceMs(800);
    }
    EXPECT_EQ(sound.played, QStringList({"once|" + ctx.soundChoice.songPath}));
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
    EXPECT_FALSE(ctx.tick.haveAlarms);
}

TEST_F(TimeInputTest, KeysPassDigitsAndBackspaceOnlyAndReleaseWipesAThirdCharacter) {
    for (QChar key : QString("0123456789\b"))
        EXPECT_TRUE(timeBoxKeyPasses(ctx, key)) << int(key.unicode());
    EXPECT_EQ(notices.beeps, 0);
    for (QChar key : QString("a: -\x1b\x16"))
        EXPECT_FALSE(timeBoxKeyPasses(ctx, key)) << int(key.unicode());
    EXPECT_EQ(notices.beeps, 6);
    const std::pair<QString, QString> released[] = {{"12", "12"}, {"123", ""}, {"pasted", ""}};
    for (auto [text, left] : released) {
        timeBoxKeyReleased(ctx, text);
        EXPECT_EQ(text, left);
    }
    EXPECT_EQ(notices.beeps, 8);
}

TEST_F(TimeInputTest, FirstDropDownCompletesTheSixtyAndNoLaterOneAddsMore) {
    QStringList minutes = twoDigitItems(0, 9);
    fillMinutes(minutes);
    ASSERT_EQ(minutes.size(), 60);
    EXPECT_EQ(minutes.at(10), "10");
    EXPECT_EQ(minutes.last(), "59");
    fillMinutes(minutes);
    EXPECT_EQ(minutes.size(), 60);

    QStringList seconds = twoDigitItems(0, 9);
    fillSeconds(seconds);
    fillSeconds(seconds);
    EXPECT_EQ(seconds, minutes);
}

TEST_F(TimeInputTest, AnotherDaySwapsTheDateColoursAndTodayRestoresThem) {
    clock.set(2002, 5, 1, 23, 59, 0);
    const QColor fore(Qt::darkBlue), back(Qt::white);
    DateLabel label;
    pickDate(ctx, QDate(2002, 4, 3), fore, back, label);
    EXPECT_EQ(ctx.entry.date, "2002/04/03");
    EXPECT_EQ(label.caption, "2002/04/03");
    EXPECT_EQ(label.fore, back);
    EXPECT_EQ(label.back, fore);

    pickDate(ctx, QDate(2002, 5, 1), fore, back, label);
    EXPECT_EQ(label.caption, "2002/05/01");
    EXPECT_EQ(label.fore, fore);
    EXPECT_EQ(label.back, back);

    // Past midnight the chosen day is no longer today.
    clock.set(2002, 5, 2, 0, 0, 1);
    pickDate(ctx, QDate(2002, 5, 1), fore, back, label);
    EXPECT_EQ(label.fore, back);
}
