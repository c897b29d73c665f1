#include "eventlist/edit_event.h"
#include "eventlist/event_list.h"
#include "eventlist/popup_actions.h"
#include "eventlist/save_all_events.h"
#include "fakes.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <gtest/gtest.h>

#include <numeric>

namespace {

struct EditEventTest : ::testing::Test, EngineFixture {
    EditEventTest() {
        clock.set(2002, 5, 1, 12, 0, 0);
        ctx.touchAlarmSet();
        EventList& list = ctx.eventList;
        list.insertRow("-", "2002/05/01-09:00:00", "past today", false);
        list.insertRow("=", "2002/05/03-13:05:09", "Dentist", false);
        list.insertRow("#", "2002/05/05-07:00:00", "", false);
        // The row being edited is the current and only highlighted one, as after a plain click.
        list.rows.selectOnly(1);
    }

    // Opens the Edit window's controls on the current row, as the popup does: date, hour, minute, second, AM/PM,
    // play count, message.
    EditControls openCurrent() {
        EventList& list = ctx.eventList;
        list.crackCurrentRow();
        return editControlsFor(list.crackedMark(), list.crackedDate(), list.crackedTime(), list.crackedMessage());
    }

    QStringList rows() const { return ctx.eventList.rows.items(); }
};

struct PopupTest : ::testing::Test, EngineFixture {
    PopupTest() {
        ctx.touchAlarmSet();
        for (int day = 2; day <= 7; ++day)
            ctx.eventList.insertRow("=", QStringLiteral("2002/05/0%1-08:00:00").arg(day), "m", false);
        writeFile("future.dat", "\"stale\"\r\n");
    }
    ListModel& rows() { return ctx.eventList.rows; }
};

struct SaveAllEventsTest : ::testing::Test, EngineFixture {
    void fillRows(int n) {
        for (int i = 0; i < n; ++i)
            ctx.eventList.insertRow("=", QStringLiteral("2002/05/%1-08:30:00").arg(i % 28 + 1, 2, 10, QChar('0')),
                                    QStringLiteral("Message number %1").arg(i), false);
    }
};

} // namespace

TEST(EditDate, FormMonthAndDayAreCheckedButNotTheYearOrMonthLength) {
    for (const char* good : {"2002/04/31", "2002/02/31", "0000/12/01", "2099/01/31"})
        EXPECT_TRUE(editDateIsValid(good)) << good;
    for (const char* bad : {"", "2002/5/01", "2002/05/011", "02/05/2002", "2002-05-01", "2002/00/01", "2002/13/01",
                            "2002/05/00", "2002/05/32", "2002/05//1", "2002/05/1/", "2002/0a/01", "2002/05/ 1"})
        EXPECT_FALSE(editDateIsValid(bad)) << bad;
}

TEST(EditOpen, RowTimesOpenOnTheTwelveHourClockAndMarksSetThePlayCount) {
    // mark, time -> hour, AM/PM, play-count index
    const QStringList cases[] = {{"=", "13:05:09", "1", "PM", "1"},
                                 {"x", "12:30:00", "12", "PM", "0"},
                                 {"~", "00:30:00", "00", "AM", "3"},
                                 {"#", "23:00:00", "11", "PM", "2"}};
    for (const QStringList& k : cases) {
        const EditControls c = editControlsFor(k[0], "2002/05/03", k[1], "m");
        EXPECT_EQ(QStringList({c.hourBox, c.amPm, QString::number(c.playCountIndex)}), k.mid(2)) << qPrintable(k[1]);
        EXPECT_EQ(c.minuteBox + c.secondBox, k[1].mid(3, 2) + k[1].right(2));
    }
}

TEST_F(EditEventTest, RefusalsTellTheUserAndChangeNoEvent) {
    const QStringList before = rows();
    // date, hour, minute, second -> words
    const QStringList cases[] = {{"2002/13/03", "1", "05", "09", "Invalid input of date"},
                                 {"2002/05/03", "", "05", "09", "Invalid input of alarm time"},
                                 {"2002/05/03", "00", "05", "09", "Invalid input of alarm time"},
                                 {"2002/05/03", "13", "05", "09", "Invalid input of alarm time"},
                                 {"2002/05/03", "1", "60", "09", "Invalid input of alarm time"},
                                 {"2002/05/03", "1", "05", "60", "Invalid input of alarm time"},
                                 {"2002/04/30", "1", "05", "09", "Day was passed"},
                                 {"2002/05/01", "11", "59", "59", "Time was passed or next day"}};
    for (const QStringList& k : cases) {
        EditControls c = openCurrent();
        c = {k[0], k[1], k[2], k[3], "AM", c.playCountIndex, c.input};
        EXPECT_FALSE(confirmEdit(ctx, c)) << qPrintable(k[4]);
        EXPECT_EQ(notices.warnings.takeLast(), k[4]);
    }
    // A message the schedule cannot hold is named, not stored with question marks.
    EditControls c = openCurrent();
    c.input = QString::fromUtf8("Dentist 🦷\r\n会议 🦷");
    EXPECT_FALSE(confirmEdit(ctx, c));
    EXPECT_EQ(notices.warnings.takeLast(), QString::fromUtf8("These characters cannot be stored: 🦷 会 议"));
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(std::tuple(notices.beeps, ctx.eventList.highlightedCount(), ctx.today.alarms.isEmpty(),
                         QFileInfo::exists(path("future.dat"))),
              std::tuple(9, 1, true, false));
}

TEST_F(EditEventTest, LaterDateReplacesTheRowAndRewritesTheSchedule) {
    EditControls c = openCurrent();
    c = {"2002/05/06", "12", c.minuteBox, c.secondBox, "AM", 3, "Two\r\nlines"};
    ASSERT_TRUE(confirmEdit(ctx, c));
    EXPECT_EQ(rows(),
              QStringList({"      -    2002/05/01-09:00:00        past today", "      #    2002/05/05-07:00:00        ",
                           "      ~    2002/05/06-00:05:09        Two\r\nlines"}));
    EXPECT_EQ(std::pair(ctx.eventList.rows.isSelected(2), ctx.eventList.highlightedCount()), std::pair(true, 1));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"past today2002/05/01once09:00:00\"\r\n"
                                                 "\"2002/05/05thri07:00:00\"\r\n"
                                                 "\"Two\r\nlines2002/05/06repe00:05:09\"\r\n"));
    EXPECT_EQ(std::pair(ctx.today.alarms.isEmpty(), notices.warnings), std::pair(true, QStringList()));
}

TEST_F(EditEventTest, TodayMovesTheEventIntoTodaysListsAndOutOfTheSchedule) {
    EditControls c = openCurrent();
    c = {"2002/05/01", "12", "0", "0", "PM", 2, c.input};
    // The present second itself is still in time.
    ASSERT_TRUE(confirmEdit(ctx, c));
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"thrice 12:00:00"}));
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Dentist at 12:00:00"}));
    EXPECT_TRUE(ctx.tick.on && ctx.tick.needNextAlarm && ctx.tick.haveAlarms);
    EXPECT_EQ(rows().size(), 2);
    EXPECT_EQ(readFile("future.dat"),
              QByteArray("\"past today2002/05/01once09:00:00\"\r\n\"2002/05/05thri07:00:00\"\r\n"));

    // Without a message no message row comes.
    ctx.eventList.rows.selectOnly(1);
    c = openCurrent();
    c = {"2002/05/01", "1", c.minuteBox, c.secondBox, "PM", c.playCountIndex, c.input};
    ASSERT_TRUE(confirmEdit(ctx, c));
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"thrice 12:00:00", "thrice 13:00:00"}));
    EXPECT_EQ(std::tuple(ctx.today.messages.count(), rows().size()), std::tuple(1, 1));
}

TEST_F(EditEventTest, WithHighlightsChangedMeanwhileTheOldEventStays) {
    // An event added for another day while the window stood open comes in highlighted too.
    ctx.eventList.insertRow("-", "2002/06/01-08:00:00", "added", true);
    EditControls c = openCurrent();
    c.dateEdit = "2002/05/04";
    ASSERT_TRUE(confirmEdit(ctx, c));
    EXPECT_EQ(std::tuple(rows().size(), ctx.eventList.highlightedCount()), std::tuple(5, 3));
}

TEST_F(PopupTest, EditWantsExactlyOneHighlightedRowAndShowsThatOne) {
    QStringList shown;
    const OpenEditorFn show = [&](const QString& mark, const QString& date, const QString& time,
                                  const QString& message) {
        shown = {mark, date, time, message};
    };

    // A Ctrl click took the highlight away from the current row.
    rows().setCurrent(2);
    editFromPopup(ctx, show);
    EXPECT_EQ(notices.warnings, QStringList({"Select one alarm event first"}));

    rows().setSelected(0, true);
    rows().setSelected(4, true);
    editFromPopup(ctx, show);
    EXPECT_EQ(notices.warnings.last(), "More than one alarm events highlighted");
    EXPECT_EQ(std::tuple(notices.beeps, shown, ctx.eventList.highlightedCount()), std::tuple(2, QStringList(), 2));

    // One highlighted row away from the current one, as the keys or an add for another day leave it: OK will
    // replace that row, so it is the one shown, and it becomes current.
    rows().setSelected(0, false);
    editFromPopup(ctx, show);
    EXPECT_EQ(std::tuple(shown, ctx.eventList.currentRow()),
              std::tuple(QStringList({"=", "2002/05/06", "08:00:00", "m"}), 4));
    EXPECT_EQ(notices.warnings.size(), 2);
}

TEST_F(PopupTest, DeleteRemovesEveryHighlightedRowAndRewritesOnce) {
    // Nothing highlighted: nothing at all happens, the file included.
    rows().setCurrent(1);
    deleteFromPopup(ctx);
    EXPECT_EQ(std::tuple(rows().count(), readFile("future.dat")), std::tuple(6, QByteArray("\"stale\"\r\n")));

    for (int row : {0, 2, 3, 5})
        rows().setSelected(row, true);
    deleteFromPopup(ctx);
    EXPECT_EQ(rows().items(),
              QStringList({"      =    2002/05/03-08:00:00        m", "      =    2002/05/06-08:00:00        m"}));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"m2002/05/03twic08:00:00\"\r\n\"m2002/05/06twic08:00:00\"\r\n"));
    EXPECT_TRUE(notices.warnings.isEmpty());

    // The last rows gone leave an empty file in place.
    rows().setSelected(0, true);
    rows().setSelected(1, true);
    deleteFromPopup(ctx);
    EXPECT_TRUE(QFileInfo::exists(path("future.dat")));
    EXPECT_TRUE(readFile("future.dat").isEmpty());
}

TEST_F(PopupTest, BulkDeleteOfScatteredRowsIsOnePassAndMatchesDeletingOneByOne) {
    // A few blocks and many blocks take different roads; both must end as the first-highlighted-first loop did.
    for (const auto [every, current] : {std::pair{40, 41}, {40, 40}, {3, 7}, {3, 6}, {2, -1}}) {
        SCOPED_TRACE(QStringLiteral("every %1th row, current %2").arg(every).arg(current).toStdString());
        EventList bulk, oneByOne;
        for (EventList* list : {&bulk, &oneByOne}) {
            list->beginBulk();
            for (int i = 0; i < 200; ++i)
                list->insertRow("=", QStringLiteral("2002/05/%1-08:00:00").arg(1 + i % 28, 2, 10, QChar('0')),
                                QStringLiteral("m%1").arg(i), false);
            list->endBulk();
            for (int r = 0; r < 200; r += every)
                list->rows.setSelected(r, true);
            list->rows.setCurrent(current);
        }
        int resets = 0, removals = 0;
        QObject::connect(&bulk.rows, &ListModel::modelReset, [&] { ++resets; });
        QObject::connect(&bulk.rows, &ListModel::rowsRemoved, [&] { ++removals; });

        const int blocks = (199 / every) + 1;
        EXPECT_EQ(bulk.removeHighlighted(), blocks);
        while (oneByOne.highlightedCount() >= 1)
            oneByOne.removeFirstHighlighted();
        EXPECT_EQ(bulk.rows.items(), oneByOne.rows.items());
        EXPECT_EQ(bulk.currentRow(), oneByOne.currentRow());
        EXPECT_EQ(bulk.highlightedCount(), 0);
        EXPECT_EQ(bulk.scheduleBytes(), oneByOne.scheduleBytes());
        // Never a signal per row: a view would redo its layout for each.
        EXPECT_LE(resets + removals, 16);
    }
}

TEST_F(PopupTest, BulkDeleteWritesTheScheduleOnce) {
    // A folder under the schedule's name makes every write fail, and each failed write is reported once.
    ASSERT_TRUE(QFile::remove(path("future.dat")));
    ASSERT_TRUE(QDir().mkdir(path("future.dat")));
    for (int row : {0, 2, 4})
        rows().setSelected(row, true);
    deleteFromPopup(ctx);
    EXPECT_EQ(rows().count(), 3);
    ASSERT_EQ(notices.warnings.size(), 1);
    EXPECT_TRUE(notices.warnings[0].startsWith("Error occurred when saving alarm event to disk, Error # "));
}

TEST_F(SaveAllEventsTest, AFolderThatCannotBeWrittenIsReportedAndTheRowsStay) {
    fillRows(3);
    ctx.folder = path("missing/");
    EXPECT_FALSE(saveAllEvents(ctx));
    EXPECT_EQ(notices.warnings,
              QStringList{"Error occurred when saving alarm event to disk, Error #  76\rPath not found"});
    EXPECT_EQ(ctx.eventList.rows.count(), 3);

    // Emptying the file of an empty list fails without a word.
    notices.warnings.clear();
    ctx.eventList.clear();
    EXPECT_FALSE(saveAllEvents(ctx));
    EXPECT_TRUE(notices.warnings.isEmpty());
}

TEST_F(SaveAllEventsTest, ARewriteCutShortLeavesTheOldFileWhole) {
    const QByteArray old = "\"Old2002/05/01once08:30:00\"\r\n";
    writeFile("future.dat", old);
    fillRows(2000); // far more than the limit lets through
    {
        FileSizeLimit limit(4096);
        EXPECT_FALSE(saveAllEvents(ctx));
    }
    EXPECT_EQ(readFile("future.dat"), old);
    ASSERT_EQ(notices.warnings.size(), 1);
    EXPECT_TRUE(notices.warnings[0].startsWith("Error occurred when saving alarm event to disk, Error #  "));
    // No half-written file is left lying in the program folder.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"future.dat"});
}

TEST(EventList, FirstHighlightedGoesFirstAndCrackingNeedsACurrentRow) {
    EventList list;
    list.insertRow("-", "2002/05/02-08:00:00", "b", true);
    list.insertRow("=", "2002/05/01-08:00:00", "a", false);
    list.insertRow("#", "2002/05/03-08:00:00", "c", true);
    list.insertRow("~", "2002/05/02-08:00:00", "b2", true);
    EXPECT_EQ(list.highlightedCount(), 3);
    list.removeFirstHighlighted(); // "b2", above "b" of the same time
    EXPECT_EQ(std::tuple(list.highlightedCount(), list.rows.item(1).endsWith("b")), std::tuple(2, true));
    list.rows.setCurrent(2);
    list.crackCurrentRow();
    EXPECT_EQ(list.crackedMessage(), "c");
    // Without a current row the fields keep their values.
    list.rows.setCurrent(-1);
    list.crackCurrentRow();
    EXPECT_EQ(list.crackedDate(), "2002/05/03");
}

TEST(EventList, BulkLoadMatchesOneByOneInsertion) {
    // Dates and times of one shape sort as numbers (by digits when there are thousands); one hand-made date of
    // another shape sorts them all as text.
    for (const auto& [odd, rows] :
         {std::pair{QString(), 500}, {QStringLiteral("2002/5/1x-01:00:00"), 500}, {QString(), 4200}}) {
        EventList single, bulk;
        QRandomGenerator rng(7);
        bulk.beginBulk();
        for (int i = 0; i < rows; ++i) {
            QString dt = QStringLiteral("2002/05/%1-0%2:00:00")
                             .arg(rng.bounded(1, 4), 2, 10, QLatin1Char('0'))
                             .arg(rng.bounded(3));
            if (i == 250 && !odd.isEmpty())
                dt = odd;
            const QString msg = QString::number(i);
            single.insertRow("-", dt, msg, i % 7 == 0);
            bulk.insertRow("-", dt, msg, i % 7 == 0);
        }
        bulk.endBulk();
        ASSERT_EQ(bulk.rows.items(), single.rows.items());
        for (int r = 0; r < single.rows.count(); ++r)
            ASSERT_EQ(bulk.rows.isSelected(r), single.rows.isSelected(r)) << r;
    }
}

TEST(EventList, LongNumericKeysSortLikeTextWithLaterOnesFirst) {
    // Nineteen digits fill every 16-bit digit of the number sort; few distinct keys make many ties.
    QRandomGenerator rng(11);
    QStringList texts;
    for (int i = 0; i < 6000; ++i)
        texts.append(QStringLiteral("%1-%2")
                         .arg(rng.bounded(3) * 3000000000ULL + 1000000000ULL)
                         .arg(rng.bounded(4) * 123456789, 9, 10, QLatin1Char('0')));
    std::vector<QStringView> keys(texts.cbegin(), texts.cend());
    // Later positions first among equals: a stable sort of the positions taken in reverse.
    std::vector<qsizetype> expected(keys.size());
    std::iota(expected.rbegin(), expected.rend(), 0);
    std::stable_sort(expected.begin(), expected.end(), [&](qsizetype a, qsizetype b) { return keys[a] < keys[b]; });
    EXPECT_EQ(ListModel::sortedOrder(keys), expected);
}

TEST_F(SaveAllEventsTest, RewriteIsByteExactAndSortedWithMarksTurnedIntoWords) {
    EventList list;
    list.insertRow("x", "2002/05/01-08:30:00", "", false);
    list.insertRow("=", "2002/05/01-08:30:00", "Dentist", false);
    list.insertRow("~", "2001/01/01-00:00:00", "a\r\nb", false);
    FileError error;
    ASSERT_TRUE(list.saveToFile(path("future.dat"), error));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"a\r\nb2001/01/01repe00:00:00\"\r\n"
                                                 "\"Dentist2002/05/01twic08:30:00\"\r\n"
                                                 "\"2002/05/01once08:30:00\"\r\n"));
}
