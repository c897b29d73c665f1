#include "alarmset/add_entry.h"
#include "alarmset/alarm_set_links.h"
#include "alarmset/alarm_set_settings.h"
#include "alarmset/day_list_delete.h"
#include "alarmset/message_view.h"
#include "alarmset/song_choice.h"
#include "alarmset/time_input.h"
#include "eventlist/delete_chooser.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct LinkedTest : ::testing::Test, EngineFixture {
    AlarmSetLinks links;
    QStringList calls; // what the procedure asked of the windows around it

    LinkedTest() {
        links.openInputMessage = [this](const QString& how) { calls.append("InputMessageWindow:" + how); };
        links.setTodayListShaded = [this](bool shaded) { calls.append(shaded ? "shaded" : "unshaded"); };
        links.showEventList = [this] { calls.append("eventlist"); };
        links.chooseMessageToDelete = [this](int count, const QList<int>& rows) {
            QString call = "DeleteChooserWindow:" + QString::number(count);
            for (int row : rows)
                call += ' ' + QString::number(row);
            calls.append(call);
        };
    }
};

struct AddEntryTest : LinkedTest {
    EntryControls entry;

    AddEntryTest() {
        clock.set(2002, 5, 1, 8, 0, 0);
        ctx.touchAlarmSet();
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

struct AlarmSetSettingsTest : ::testing::Test, EngineFixture {
    AlarmSetSettingsTest() { clock.set(2002, 5, 1, 12, 0, 0); }
    QByteArray record(int n) { return readFile("tolm.ini").mid((n - 1) * 55, 55); }
};

struct DayListTest : LinkedTest {
    MessageView view;

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
    EXPECT_EQ(std::tuple(notices.beeps, ctx.today.alarms.isEmpty(), ctx.tick.on), std::tuple(0, true, false));

    enter("08", "59", "59", "PM");
    EXPECT_EQ(add(), "once 20:59:59");
}

TEST_F(AddEntryTest, NoSecondModeOverwritesTheSecondsBeforeAnyTest) {
    ctx.options.noSecond = true;
    enter("09", "30", "", "AM");
    EXPECT_EQ(add(), "once 09:30:00");
    enter("09", "31", "77", "AM");
    EXPECT_EQ(add(), "once 09:31:00");
    EXPECT_EQ(std::tuple(entry.secondBox, entry.secondIndex, notices.warnings), std::tuple("00", 0, QStringList()));
}

TEST_F(AddEntryTest, TodayRefusesAPassedTimeButAcceptsThePresentSecond) {
    clock.set(2002, 5, 1, 20, 30, 15);
    enter("8", "30", "14", "PM");
    add();
    EXPECT_EQ(notices.warnings, QStringList({"Time was passed or next day"}));
    EXPECT_EQ(std::tuple(notices.beeps, ctx.today.alarms.isEmpty(), ctx.tick.haveAlarms), std::tuple(1, true, false));
    EXPECT_EQ(entry.hourBox, "08"); // padded texts stay
    EXPECT_EQ(ctx.newEvent.time, "20:30:14");

    enter("08", "30", "15", "PM");
    EXPECT_EQ(add(), "once 20:30:15");
    EXPECT_EQ(std::tuple(ctx.tick.haveAlarms, ctx.tick.on, ctx.tick.needNextAlarm), std::tuple(true, true, true));
    EXPECT_EQ(notices.warnings.size(), 1);
}

TEST_F(AddEntryTest, AnotherDayGoesToTheScheduleWhateverTheTime) {
    clock.set(2002, 5, 1, 20, 0, 0);
    for (const char* day : {"2002/04/30", "2002/05/02"}) {
        ctx.entry.date = day;
        enter("01", "00", "00", "AM");
        add();
    }
    EXPECT_EQ(std::tuple(notices.warnings, ctx.today.alarms.isEmpty(), ctx.tick.haveAlarms),
              std::tuple(QStringList(), true, false));
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
    EXPECT_EQ(std::tuple(ctx.newEvent.playWord, ctx.newEvent.mark), std::tuple("thri", "#"));
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
    EXPECT_EQ(std::tuple(calls, ctx.today.alarms.count()), std::tuple(QStringList(), 2));

    // Another day: InputMessageWindow saves it later, so nothing is written now.
    ctx.front.claimant = 0;
    ctx.entry.date = "2002/05/02";
    add();
    EXPECT_EQ(calls, QStringList({"eventlist", "InputMessageWindow:"}));
    EXPECT_FALSE(QFile::exists(path("future.dat")));
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
    for (auto fill : {&fillMinutes, &fillSeconds}) {
        QStringList items = twoDigitItems(0, 9);
        fill(items);
        fill(items);
        EXPECT_EQ(items, twoDigitItems(0, 59));
    }
}

TEST_F(TimeInputTest, AnotherDaySwapsTheDateColoursAndTodayRestoresThem) {
    clock.set(2002, 5, 1, 23, 59, 0);
    const QColor fore(Qt::darkBlue), back(Qt::white);
    DateLabel label;
    pickDate(ctx, QDate(2002, 4, 3), fore, back, label);
    EXPECT_EQ(ctx.entry.date, "2002/04/03");
    EXPECT_EQ(label.caption, "2002/04/03");
    EXPECT_EQ(std::pair(label.fore, label.back), std::pair(back, fore));

    pickDate(ctx, QDate(2002, 5, 1), fore, back, label);
    EXPECT_EQ(label.caption, "2002/05/01");
    EXPECT_EQ(std::pair(label.fore, label.back), std::pair(fore, back));

    // Past midnight the chosen day is no longer today.
    clock.set(2002, 5, 2, 0, 0, 1);
    pickDate(ctx, QDate(2002, 5, 1), fore, back, label);
    EXPECT_EQ(label.fore, back);
}

TEST_F(AlarmSetSettingsTest, LoadWithoutFileKeepsEveryDefault) {
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_EQ(loaded.amPm, "PM"); // 12 o'clock is afternoon
    EXPECT_FALSE(loaded.havePosition);
    EXPECT_EQ(ctx.soundChoice.songPath, path("ding.wav"));
    EXPECT_FALSE(ctx.settings.loaded);
    EXPECT_TRUE(alarmSetControlFont(ctx).family.isEmpty());

    clock.set(2002, 5, 1, 11, 59, 59);
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_EQ(loaded.amPm, "AM");
}

TEST_F(AlarmSetSettingsTest, LoadTakesPlaceSongAndSoundBoxesFromTheirRecords) {
    writeFile("tolm.ini", settingBytes("[TimeInputLoc]", 1200, 3000, "") + QByteArray(55, '\0') +
                              settingBytes("[SongName]", 0, 0, "rooster") +
                              settingBytes("[Setting]", 0, 1, "ALAEOfDCWSOfUISPOfISOMOf") + QByteArray(3 * 55, '\0') +
                              settingBytes("[AllFont]", 0, 0, "TimesNewRoman"));
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_EQ(std::tuple(loaded.havePosition, loaded.top, loaded.left), std::tuple(true, 1200, 3000));
    EXPECT_EQ(ctx.soundChoice.songPath, path("rooster.wav"));
    EXPECT_EQ(
        std::tuple(ctx.settings.loaded, ctx.settings.boxes.soundOnBox, ctx.options.soundOn, ctx.options.errorPopups),
        std::tuple(true, false, false, true));

    const ControlFont font = alarmSetControlFont(ctx);
    EXPECT_EQ(std::pair(font.family, font.pointSize), std::pair(QStringLiteral("Times New Roman"), 10));
}

TEST_F(AlarmSetSettingsTest, UnwrittenPositionRecordClearsTheBufferNumbers) {
    writeFile("tolm.ini", QByteArray(2 * 55, '\0') + settingBytes("[SongName]", 0, 0, "x") + QByteArray(4 * 55, '\0') +
                              settingBytes("[AllFont]", 0, 0, "Arial"));
    ctx.recordBuffer.value1 = 77;
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_EQ(std::tuple(loaded.havePosition, ctx.recordBuffer.value1), std::tuple(false, 0));
    EXPECT_EQ(ctx.soundChoice.songPath, path("x.wav"));
    const ControlFont font = alarmSetControlFont(ctx); // Arial keeps the laid-out sizes
    EXPECT_EQ(std::pair(font.family, font.pointSize), std::pair(QStringLiteral("Arial"), 0));
}

TEST_F(AlarmSetSettingsTest, ExitStoresThePlaceAndWantsTheWindowOnlyWithRowsLeft) {
    storeAlarmSetPlace(ctx, 1440.4, 2879.5, ctx.today.alarms);
    EXPECT_EQ(record(1).left(25), settingBytes("[TimeInputLoc]", 1440, 2880, "").left(25));
    EXPECT_FALSE(ctx.tick.alarmSetWanted);

    ctx.today.alarms.addItem("once 13:00:00");
    storeAlarmSetPlace(ctx, 0, 0, ctx.today.alarms);
    EXPECT_TRUE(ctx.tick.alarmSetWanted);
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_TRUE(loaded.havePosition);
}

TEST_F(AlarmSetSettingsTest, SongsAreTheWaveFilesAndAClickStoresTheChoice) {
    writeFile("rooster.wav", "RIFF");
    writeFile("chime.wav", "RIFF");
    writeFile("notes.txt", "x");
    writeFile("LOUD.WAV", "RIFF");
    QStringList songs = {"stale"};
    listSongs(ctx, songs);
    songs.sort();
    EXPECT_EQ(songs, QStringList({"chime", "rooster"}));

    chooseSong(ctx, songs, -1);
    playSongTrial(ctx, songs, -1);
    EXPECT_EQ(ctx.soundChoice.songPath, path("ding.wav"));
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));
    EXPECT_TRUE(sound.waves.isEmpty());

    chooseSong(ctx, songs, 1);
    EXPECT_EQ(ctx.soundChoice.songPath, path("rooster.wav"));
    EXPECT_EQ(record(3), settingBytes("[SongName]", 0, 0, "rooster"));
    playSongTrial(ctx, songs, 0);
    EXPECT_EQ(sound.waves, QStringList({path("chime.wav")}));
}

TEST_F(DayListTest, ViewShowsMarksTwelveHourTimesAndUsesEachMessageOnce) {
    rows({"once 00:05:00", "twice 08:30:00", "thrice 08:30:00", "repeat 13:05:00", "often 14:00:00"},
         {"Tea\r\nand cake at 08:30:00", "Call Bob at 13:05:00", "Stand up at 08:30:00"});
    toggleMessageView(ctx, view);
    EXPECT_EQ(std::tuple(view.visible, view.caption), std::tuple(true, "Hide Messages"));
    EXPECT_EQ(view.text, "\r\n_12:05:00 AM"
                         "\r\n=08:30:00 AM  /  Tea\r\nand cake"
                         "\r\n#08:30:00 AM  /  Stand up"
                         "\r\n~01:05:00 PM  /  Call Bob"
                         "\r\n?02:00:00 PM");
    // The copy is used up, the messages themselves stay.
    EXPECT_EQ(std::tuple(ctx.today.shadowMessages.isEmpty(), ctx.today.messages.count()), std::tuple(true, 3));

    toggleMessageView(ctx, view);
    EXPECT_EQ(std::tuple(view.text, view.caption), std::tuple("", "View Messages"));
}

TEST_F(DayListTest, ViewStaysHiddenWithoutTodayRowsAndTwoRowsShareOneMessage) {
    rows({}, {"Tea at 08:30:00"});
    toggleMessageView(ctx, view);
    EXPECT_EQ(std::tuple(view.visible, view.caption), std::tuple(false, "View Messages"));
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
    EXPECT_EQ(std::tuple(ctx.tick.needNextAlarm, ctx.tick.haveAlarms, ctx.tick.nextAlarm), std::tuple(true, true, ""));
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
    EXPECT_EQ(std::pair(ctx.today.alarms.count(), ctx.today.messages.count()), std::pair(1, 1));
    EXPECT_EQ(std::tuple(ctx.tick.needNextAlarm, ctx.tick.haveAlarms, ctx.tick.nextPlayWord),
              std::tuple(true, true, ""));
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
    for (const char* next : {"Call Bob", "Coffee", "Call Bob"}) {
        chooser.showNext(ctx, messageText, informationLabel);
        EXPECT_EQ(messageText, next);
    }

    chooser.remove(ctx);
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Coffee at 10:00:00", "Other at 09:00:00"}));
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 09:00:00"}));
    EXPECT_EQ(std::tuple(ctx.tick.needNextAlarm, ctx.tick.haveAlarms, ctx.tick.nextAlarm, ctx.tick.nextPlayWord),
              std::tuple(true, true, "", ""));
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
    EXPECT_EQ(std::tuple(ctx.today.messages.count(), ctx.today.alarms.count()), std::tuple(3, 1));

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
