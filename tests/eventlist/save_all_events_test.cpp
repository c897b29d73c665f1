#include "eventlist/bwklistbox.h"
#include "eventlist/save_all_events.h"
#include "fakes.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace {

struct SaveAllEventsTest : ::testing::Test, EngineFixture {
    void fillRows(int n) {
        for (int i = 0; i < n; ++i)
            ctx.Bwklistbox1.ShowData("=", QStringLiteral("2002/05/%1-08:30:00").arg(i % 28 + 1, 2, 10, QChar('0')),
                                     QStringLiteral("Message number %1").arg(i), false);
    }
};

// Holds the size any file of this process may grow to, as a full disk would, for the life of the object.
struct FileSizeLimit {
    rlimit saved{};
    void (*savedHandler)(int) = nullptr;
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved);
        savedHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &saved);
        std::signal(SIGXFSZ, savedHandler);
    }
};

} // namespace

TEST_F(SaveAllEventsTest, AFolderThatCannotBeWrittenIsReportedAndTheRowsStay) {
    fillRows(3);
    ctx.m.strAppPath = path("missing/");
    EXPECT_FALSE(SaveAllEvents(ctx));
    EXPECT_EQ(notices.warnings,
              QStringList{"Error occurred when saving alarm event to disk, Error #  76\rPath not found"});
    EXPECT_EQ(ctx.Bwklistbox1.lstMain.count(), 3);

    // Emptying the file of an empty list fails without a word.
    notices.warnings.clear();
    ctx.Bwklistbox1.ClearListView();
    EXPECT_FALSE(SaveAllEvents(ctx));
    EXPECT_TRUE(notices.warnings.isEmpty());
}

TEST_F(SaveAllEventsTest, ARewriteCutShortLeavesTheOldFileWhole) {
    const QByteArray old = "\"Old2002/05/01once08:30:00\"\r\n";
    writeFile("future.dat", old);
    fillRows(2000); // far more than the limit lets through
    {
        FileSizeLimit limit(4096);
        EXPECT_FALSE(SaveAllEvents(ctx));
    }
    EXPECT_EQ(readFile("future.dat"), old);
    ASSERT_EQ(notices.warnings.size(), 1);
    EXPECT_TRUE(notices.warnings[0].startsWith("Error occurred when saving alarm event to disk, Error #  "));
    // No half-written file is left lying in the program folder.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"future.dat"});
}

TEST(Bwklistbox, InsertionHighlightsAndDeletion) {
    Bwklistbox list;
    list.ShowData("-", "2002/05/02-08:00:00", "b", true);
    list.ShowData("=", "2002/05/01-08:00:00", "a", false);
    list.ShowData("#", "2002/05/03-08:00:00", "c", true);
    list.ShowData("~", "2002/05/02-08:00:00", "b2", true);
    EXPECT_EQ(list.lstMain.count(), 4);
    EXPECT_TRUE(list.lstMain.item(1).endsWith("b2"));
    EXPECT_TRUE(list.lstMain.isSelected(3));
    EXPECT_EQ(list.MultiSelectedItem(), 3);
    list.MultiDelete(); // the first highlighted row, index 1
    EXPECT_EQ(list.MultiSelectedItem(), 2);
    EXPECT_TRUE(list.lstMain.item(1).endsWith("b"));
    // Cracking needs a current row; without one the fields keep their values.
    list.lstMain.setCurrent(2);
    list.CrackAlarmEvent();
    EXPECT_EQ(list.MessageIs(), "c");
    list.lstMain.setCurrent(-1);
    list.CrackAlarmEvent();
    EXPECT_EQ(list.DateIs(), "2002/05/03");
}

TEST(Bwklistbox, BulkLoadMatchesOneByOneInsertion) {
    Bwklistbox single, bulk;
    QRandomGenerator rng(7);
    bulk.beginBulk();
    for (int i = 0; i < 500; ++i) {
        const QString dt =
            QStringLiteral("2002/05/%1-0%2:00:00").arg(rng.bounded(1, 4), 2, 10, QLatin1Char('0')).arg(rng.bounded(3));
        const QString msg = QString::number(i);
        single.ShowData("-", dt, msg, i % 7 == 0);
        bulk.ShowData("-", dt, msg, i % 7 == 0);
    }
    bulk.endBulk();
    EXPECT_EQ(bulk.lstMain.items(), single.lstMain.items());
    for (int r = 0; r < single.lstMain.count(); ++r)
        ASSERT_EQ(bulk.lstMain.isSelected(r), single.lstMain.isSelected(r)) << r;
}

TEST_F(SaveAllEventsTest, RewriteIsByteExactAndSortedWithMarksTurnedIntoWords) {
    Bwklistbox list;
    list.ShowData("x", "2002/05/01-08:30:00", "", false);
    list.ShowData("=", "2002/05/01-08:30:00", "Dentist", false);
    list.ShowData("~", "2001/01/01-00:00:00", "a\r\nb", false);
    FileError error;
    ASSERT_TRUE(list.SaveAllEventsToDisk(path("future.dat"), error));
    EXPECT_EQ(readFile("future.dat"), QByteArray("\"a\r\nb2001/01/01repe00:00:00\"\r\n"
                                                 "\"Dentist2002/05/01twic08:30:00\"\r\n"
                                                 "\"2002/05/01once08:30:00\"\r\n"));
    list.ClearListView();
    ASSERT_TRUE(list.SaveAllEventsToDisk(path("future.dat"), error));
    EXPECT_EQ(QFileInfo(path("future.dat")).size(), 0);
}
