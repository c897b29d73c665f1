#include "engine/alarm_event.h"
#include "eventlist/event_list.h"
#include "eventlist/save_all_events.h"
#include "fakes.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <gtest/gtest.h>

#include <numeric>

namespace {

struct SaveAllEventsTest : ::testing::Test, EngineFixture {
    void fillRows(int n) {
        for (int i = 0; i < n; ++i)
            ctx.eventList.insertRow("=", QStringLiteral("2002/05/%1-08:30:00").arg(i % 28 + 1, 2, 10, QChar('0')),
                                    QStringLiteral("Message number %1").arg(i), false);
    }
};

} // namespace

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

TEST(EventList, InsertionHighlightsAndDeletion) {
    EventList list;
    list.insertRow("-", "2002/05/02-08:00:00", "b", true);
    list.insertRow("=", "2002/05/01-08:00:00", "a", false);
    list.insertRow("#", "2002/05/03-08:00:00", "c", true);
    list.insertRow("~", "2002/05/02-08:00:00", "b2", true);
    EXPECT_EQ(list.rows.count(), 4);
    EXPECT_TRUE(list.rows.item(1).endsWith("b2"));
    EXPECT_TRUE(list.rows.isSelected(3));
    EXPECT_EQ(list.highlightedCount(), 3);
    list.removeFirstHighlighted(); // the first highlighted row, index 1
    EXPECT_EQ(list.highlightedCount(), 2);
    EXPECT_TRUE(list.rows.item(1).endsWith("b"));
    // Cracking needs a current row; without one the fields keep their values.
    list.rows.setCurrent(2);
    list.crackCurrentRow();
    EXPECT_EQ(list.crackedMessage(), "c");
    list.rows.setCurrent(-1);
    list.crackCurrentRow();
    EXPECT_EQ(list.crackedDate(), "2002/05/03");
    // A view is given what fits on a line of a long message; the row stays whole.
    list.insertRow("-", "2002/05/04-08:00:00", QString(200000, 'm'), false);
    const QModelIndex last = list.rows.index(list.rows.count() - 1);
    EXPECT_EQ(list.rows.data(last).toString().size(), ListModel::kShownLength);
    EXPECT_EQ(list.rows.item(last.row()).size(), alarm_event::kRowFixedLength + 200000);
}

TEST(EventList, BulkLoadMatchesOneByOneInsertion) {
    // Dates and times of one shape sort as numbers (by digits when there are thousands); one hand-made date of
    // another shape sorts them all as text.
    struct Case {
        QString odd;
        int rows;
    };
    for (const Case c :
         {Case{QString(), 500}, Case{QStringLiteral("2002/5/1x-01:00:00"), 500}, Case{QString(), 4200}}) {
        const QString odd = c.odd;
        EventList single, bulk;
        QRandomGenerator rng(7);
        bulk.beginBulk();
        for (int i = 0; i < c.rows; ++i) {
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
    list.clear();
    ASSERT_TRUE(list.saveToFile(path("future.dat"), error));
    EXPECT_EQ(QFileInfo(path("future.dat")).size(), 0);
}
