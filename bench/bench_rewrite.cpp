// Measures rewriting the schedule file from a full event list.
// Usage: bench_rewrite [rows] [repeats]   (default 100000 5)
#include "engine/context.h"
#include "eventlist/save_all_events.h"
#include "platform/clock.h"
#include "sound/null_services.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

void fill(EventList& list, int rows) {
    static const char* marks[] = {"-", "=", "#", "~", "x"};
    QRandomGenerator rng(42);
    list.beginBulk();
    for (int i = 0; i < rows; ++i) {
        const QDate day = QDate(2026, 1, 1).addDays(rng.bounded(730));
        const QString dateTime =
            day.toString(QStringLiteral("yyyy/MM/dd")) + QStringLiteral("-%1:%2:%3")
                                                             .arg(rng.bounded(24), 2, 10, QLatin1Char('0'))
                                                             .arg(rng.bounded(60), 2, 10, QLatin1Char('0'))
                                                             .arg(rng.bounded(60), 2, 10, QLatin1Char('0'));
        const QString message = rng.bounded(2) ? QStringLiteral("Event number %1, with a message").arg(i) : QString();
        list.insertRow(QLatin1String(marks[rng.bounded(5)]), dateTime, message, false);
    }
    list.endBulk();
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int rows = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100000;
    const int repeats = argc > 2 ? std::max(1, QString::fromLocal8Bit(argv[2]).toInt()) : 5;

    QTemporaryDir dir;
    FakeClock clock(QDateTime(QDate(2026, 11, 23), QTime(12, 0, 0)));
    NullNotices notices;
    NullSound sound;
    Context ctx(clock, notices, sound);
    ctx.setStartValues(dir.path());
    fill(ctx.eventList, rows);
    if (ctx.eventList.rows.count() != rows) {
        std::fprintf(stderr, "filled %d rows of %d\n", ctx.eventList.rows.count(), rows);
        return 1;
    }

    std::vector<double> seconds;
    for (int i = 0; i < repeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        const bool written = saveAllEvents(ctx);
        seconds.push_back(timer.nsecsElapsed() / 1e9);
        if (!written || notices.warnings != 0)
            return 1;
    }
    std::sort(seconds.begin(), seconds.end());
    const qint64 size = QFileInfo(ctx.appFile(QStringLiteral("future.dat"))).size();
    std::printf("%d rows, %lld bytes: rewrite best %.3f s, median %.3f s, worst %.3f s (target under 0.2 s)\n", rows,
                static_cast<long long>(size), seconds.front(), seconds[seconds.size() / 2], seconds.back());
    return seconds[seconds.size() / 2] < 0.2 ? 0 : 2;
}
