#include <QCoreApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

QString helperPath() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/bellwick-wake");
}

struct Reply {
    int exitCode;
    QByteArray out;
};

Reply helperGiven(const QByteArray& input) {
    QProcess helper;
    helper.start(helperPath(), {});
    EXPECT_TRUE(helper.waitForStarted());
    helper.write(input);
    helper.closeWriteChannel();
    EXPECT_TRUE(helper.waitForFinished(5000));
    return {helper.exitCode(), helper.readAllStandardOutput()};
}

} // namespace

// The program arming, counting down and disarming its own timer as root is seen in the kernel's timer in desktop_wake.
TEST(WakeHelperTest, ArmsOnNumbersInRangeAndEndsOnAnythingElse) {
    // Without the capability every number is answered with the reason; a line that is no number ends it either way.
    const QByteArray ok = geteuid() == 0 ? "ok\n" : "error no permission\n";
    const std::tuple<QByteArray, int, QByteArray> cases[] = {
        {"60000\n0\n", 0, ok + ok},
        {"3162240000000\n", 0, ok}, // a hundred years
        {"3162240000001\n", 2, ""},
        {"1000\n-5\n", 2, ok},
        {"1000\n\n", 2, ok},
        {"12a\n", 2, ""},
        {"1 000\n", 2, ""},
        {"99999999999999999999\n", 2, ""},
        {"1000", 2, ""}, // cut off before its line ends
    };
    for (const auto& [input, exitCode, out] : cases) {
        const Reply reply = helperGiven(input);
        EXPECT_EQ(std::pair(reply.exitCode, reply.out), std::pair(exitCode, out)) << input.constData();
    }
}
