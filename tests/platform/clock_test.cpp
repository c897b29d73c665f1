#include "platform/clock.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <ctime>

namespace {

struct CountingClock : SystemClock {
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

void setZone(const QByteArray& tz) {
    qputenv("TZ", tz);
    tzset();
}

} // namespace

// A schedule load asks for the time for every record: the zone must not be looked up each time, yet a change
// of zone counts from the next second on.
TEST(SystemClockTest, TheZoneIsLookedUpOnceASecondAndAChangeCountsFromTheNextSecond) {
    const QByteArray savedZone = qgetenv("TZ");
    CountingClock clock;
    QElapsedTimer elapsed;
    elapsed.start();
    for (int i = 0; i < 200000; ++i)
        (void)clock.timeText();
    EXPECT_LE(clock.lookups, elapsed.elapsed() / 1000 + 2);
    EXPECT_LE(std::abs(clock.now().secsTo(QDateTime::currentDateTime())), 1);

    setZone("UTC0");
    waitForNextSecond();
    EXPECT_EQ(clock.now().offsetFromUtc(), 0);
    setZone("JST-9");
    waitForNextSecond();
    const QDateTime tokyo = clock.now();
    EXPECT_EQ(tokyo.offsetFromUtc(), 9 * 3600);
    EXPECT_LE(std::abs(tokyo.time().secsTo(QDateTime::currentDateTime().time())), 1);
    if (savedZone.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", savedZone);
    tzset();
}
