#include "eventlist/save_all_events.h"
#include "fakes.h"

#include <QDir>
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
