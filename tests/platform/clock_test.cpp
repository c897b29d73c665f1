#include "local_zone.h"
#include "platform/clock.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace {

struct CountingClock : SystemClock {
    using SystemClock::SystemClock;
    mutable int lookups = 0;
    int localOffset(qint64 msecsSinceEpoch) const override {
        ++lookups;
        return SystemClock::localOffset(msecsSinceEpoch);
    }
};

void waitForNextSecond() {
    const qint64 second = QDateTime::currentMSecsSinceEpoch() / 1000;
    while (QDateTime::currentMSecsSinceEpoch() / 1000 == second)
        ;
}

} // namespace

// A schedule load asks for the time for every record and the idle program several times a second: the zone must
// not be looked up each time, yet a change of zone counts from the next period on.
TEST(SystemClockTest, TheZoneIsLookedUpOncePerPeriodAndAChangeCountsFromTheNext) {
    {
        CountingClock byMinute;
        QElapsedTimer elapsed;
        elapsed.start();
        for (int i = 0; i < 200000; ++i)
            (void)byMinute.timeText();
        EXPECT_LE(byMinute.lookups, elapsed.elapsed() / 60000 + 2);
        EXPECT_LE(std::abs(byMinute.now().secsTo(QDateTime::currentDateTime())), 1);
    }
    CountingClock clock(1);

    const LocalZone utc("UTC0");
    waitForNextSecond();
    EXPECT_EQ(clock.now().offsetFromUtc(), 0);
    const LocalZone japan("JST-9");
    waitForNextSecond();
    const QDateTime tokyo = clock.now();
    EXPECT_EQ(tokyo.offsetFromUtc(), 9 * 3600);
    EXPECT_LE(std::abs(tokyo.time().secsTo(QDateTime::currentDateTime().time())), 1);
}
