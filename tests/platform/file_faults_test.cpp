// The program's files on a disk that fills up, and names that are not files at all.
#include "datafiles/data_file.h"
#include "engine/schedule_file.h"
#include "fakes.h"
#include "settings/settings_file.h"
#include "settings/settings_records.h"

#include <QDir>
#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

struct FileFaults : ::testing::Test, EngineFixture {
    QByteArray fill(const QString& name, const QByteArray& bytes) {
        writeFile(name, bytes);
        return bytes;
    }
    QStringList folder() const { return QDir(dir.path()).entryList(QDir::Files); }
};

QByteArray scheduleOf(int records) {
    QByteArray out;
    for (int i = 0; i < records; ++i)
        out += quotedRecord(QStringLiteral("event %1 2002/06/01once09:00:00").arg(i).toLatin1());
    return out;
}

} // namespace

TEST_F(FileFaults, AnAppendLeavesTheScheduleWholeAndTheNextOneReadsBack) {
    const QByteArray old = fill("future.dat", scheduleOf(100));
    ctx.entry.date = "2002/05/09";
    ctx.newEvent = {"08:30:00", "once", "-", false, false};
    {
        // Room for the file as it stands and a few bytes more, as on a disk with a little space left.
        FileSizeLimit limit(old.size() + 10);
        appendToSchedule(ctx, "Dentist");
    }
    EXPECT_EQ(std::tuple(readFile("future.dat"), folder()), std::tuple(old, QStringList{"future.dat"}));
    ASSERT_EQ(notices.warnings.size(), 1);
    EXPECT_TRUE(notices.warnings[0].startsWith("Error occurred when saving alarm events to disk, data may be lost, "));
    // The event still stands in the list; with room again the next one lands whole.
    EXPECT_EQ(ctx.eventList.rows.count(), 1);
    appendToSchedule(ctx, "Walk");
    EXPECT_EQ(readFile("future.dat"), old + quotedRecord("Walk2002/05/09once08:30:00"));
    loadSchedule(ctx, "future.dat");
    EXPECT_EQ(std::tuple(ctx.eventList.rows.count(), notices.errorLists.empty()), std::tuple(101, true));
}

TEST_F(FileFaults, SettingsAndDataFilesStayWhole) {
    const QByteArray ini = fill("tolm.ini", settingBytes("[TimeInputLoc]", 1, 2, "", 0) + settingBytes("", 0, 0, ""));
    {
        FileSizeLimit limit(ini.size() + 10);
        EXPECT_FALSE(settings_records::writeFontSizeOfClock(ctx.folder, 11)); // record 11, past the end
        EXPECT_FALSE(settings_records::writeSongName(ctx, "a song"));         // through the shared buffer
    }
    EXPECT_EQ(readFile("tolm.ini"), ini);

    const QByteArray day = fill("my.dat", quotedRecord("once 09:00:00"));
    for (int i = 0; i < 50; ++i)
        ctx.today.alarms.addItem(QStringLiteral("twice 10:%1:00").arg(i, 2, 10, QChar('0')));
    {
        FileSizeLimit limit(day.size() + 10);
        writeDataFile(ctx, "my.dat");
    }
    EXPECT_EQ(std::tuple(readFile("my.dat"), folder()), std::tuple(day, QStringList({"my.dat", "tolm.ini"})));
    ASSERT_EQ(notices.warnings.size(), 1);
    EXPECT_TRUE(notices.warnings[0].startsWith("Error occurred when saving alarm events to disk, data may be lost, "));
}

// A named pipe or a folder under a file's name is refused at once, as a file that cannot be read.
TEST_F(FileFaults, PipesAndFoldersAreNoFilesAndHoldNothingUp) {
    ASSERT_EQ(mkfifo(qPrintable(path("future.dat")), 0600), 0);
    ASSERT_EQ(mkfifo(qPrintable(path("my.dat")), 0600), 0);
    ASSERT_EQ(mkfifo(qPrintable(path("tolm.ini")), 0600), 0);
    SettingsFile settings;
    EXPECT_TRUE(finishesWithin(2000, path("tolm.ini"), [&] { EXPECT_FALSE(settings.openForReading(ctx.folder)); }));
    EXPECT_EQ(settings.error().number, 75);
    ASSERT_EQ(::unlink(qPrintable(path("tolm.ini"))), 0);
    ASSERT_TRUE(QDir(dir.path()).mkdir("tolm.ini"));
    QElapsedTimer elapsed;
    elapsed.start();
    loadSchedule(ctx, "future.dat");
    EXPECT_EQ(ctx.eventList.rows.count(), 0);
    loadDataFile(ctx, "my.dat");
    ctx.entry.date = "2002/05/09";
    ctx.newEvent = {"08:30:00", "once", "-", false, false};
    appendToSchedule(ctx, "Dentist");
    EXPECT_FALSE(settings_records::writeSongName(ctx, "a song"));
    EXPECT_LT(elapsed.elapsed(), 2000);
    EXPECT_EQ(ctx.eventList.rows.count(), 1);
    EXPECT_EQ(notices.warnings,
              QStringList({"Error occurred when loading data from files, Error #  75\rPath/File access error",
                           "Error occurred when saving alarm events to disk, data may be lost, Error #  75\r"
                           "Path/File access error"}));
}
