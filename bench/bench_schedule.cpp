// Measures reading a large schedule into the event list and writing it back.
// Usage: bench_schedule [events...]   (default 10000 100000)
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"
#include "platform/record_file.h"
#include "sound/null_services.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>

namespace {

QStringList randomSchedule(int events) {
    static const char* words[] = {"once", "twic", "thri", "repe"};
    QRandomGenerator rng(42);
    QStringList lines;
    lines.reserve(events);
    for (int i = 0; i < events; ++i) {
        const QDate day = QDate(2026, 1, 1).addDays(rng.bounded(730));
        const QString message = rng.bounded(2) ? QStringLiteral("Event number %1, with a message").arg(i) : QString();
        lines.append(message + day.toString(QStringLiteral("yyyy/MM/dd")) + QLatin1String(words[rng.bounded(4)]) +
                     QStringLiteral("%1:%2:%3")
                         .arg(rng.bounded(24), 2, 10, QLatin1Char('0'))
                         .arg(rng.bounded(60), 2, 10, QLatin1Char('0'))
                         .arg(rng.bounded(60), 2, 10, QLatin1Char('0')));
    }
    return lines;
}

struct Result {
    double loadSeconds;
    double rewriteSeconds;
};

Result measure(int events) {
    QTemporaryDir dir;
    SystemClock clock;
    NullNotices notices;
    NullSound sound;
    Context ctx(clock, notices, sound);
    ctx.setStartValues(dir.path());
    FileError error;
    if (!record_file::rewriteRecords(ctx.appFile(QStringLiteral("future.dat")), randomSchedule(events), error)) {
        std::fprintf(stderr, "cannot write the schedule: %s\n", qPrintable(error.description));
        std::exit(1);
    }
    QElapsedTimer timer;
    timer.start();
    loadSchedule(ctx, QStringLiteral("future.dat"));
    const double load = timer.nsecsElapsed() / 1e9;
    if (ctx.eventList.rows.count() != events) {
        std::fprintf(stderr, "loaded %d rows of %d\n", ctx.eventList.rows.count(), events);
        std::exit(1);
    }
    timer.restart();
    if (!ctx.eventList.saveToFile(ctx.appFile(QStringLiteral("future.dat")), error)) {
        std::fprintf(stderr, "cannot rewrite: %s\n", qPrintable(error.description));
        std::exit(1);
    }
    return {load, timer.nsecsElapsed() / 1e9};
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QList<int> sizes;
    for (int i = 1; i < argc; ++i)
        sizes.append(QString::fromLocal8Bit(argv[i]).toInt());
    if (sizes.isEmpty())
        sizes = {10000, 100000};
    double previous = 0;
    int previousSize = 0;
    for (const int n : sizes) {
        const Result r = measure(n);
        std::printf("%7d events: load %.3f s (%.0f events/s), rewrite %.3f s", n, r.loadSeconds, n / r.loadSeconds,
                    r.rewriteSeconds);
        if (previous > 0)
            std::printf(", %.1fx the events cost %.1fx the load time", double(n) / previousSize,
                        r.loadSeconds / previous);
        std::printf("\n");
        previous = r.loadSeconds;
        previousSize = n;
    }
    return 0;
}
