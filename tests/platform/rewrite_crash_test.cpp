#include "eventlist/event_list.h"
#include "platform/record_file.h"
#include "qt_printers.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QByteArray schedule(int rows, const QString& message) {
    EventList list;
    list.beginBulk();
    for (int i = 0; i < rows; ++i)
        list.insertRow("=", QStringLiteral("2030/01/01-%1:00:00").arg(i % 24, 2, 10, QLatin1Char('0')), message, false);
    list.endBulk();
    return list.scheduleBytes();
}

} // namespace

// A rewrite killed at any moment leaves the old file or the new one, whole, never a truncated one.
TEST(RewriteCrash, KilledRewritesOfALargeScheduleLeaveAWholeFile) {
    QTemporaryDir dir;
    const QString path = dir.path() + "/future.dat";
    const QByteArray oldBytes = schedule(100000, "old");
    const QByteArray newBytes = schedule(100000, "the new message");
    FileError error;
    ASSERT_TRUE(record_file::rewriteBytes(path, oldBytes, error));

    QRandomGenerator rng(1);
    for (int round = 0; round < 6; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            FileError childError;
            for (int i = 0; i < 1000; ++i)
                record_file::rewriteBytes(path, i % 2 ? oldBytes : newBytes, childError);
            _exit(0);
        }
        usleep(20000 + rng.bounded(150000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);

        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray now = file.readAll();
        EXPECT_TRUE(now == oldBytes || now == newBytes) << "round " << round << ": " << now.size() << " bytes";
    }
}
