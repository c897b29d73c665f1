// Measures deleting many highlighted rows of the event list from its popup, the rewrite of future.dat included,
// with the list shown in its view as in the program.
// Usage: bench_bulk_delete [deleted rows] [repeats]   (default 100000 3)
// Two cases: every row highlighted (one block), and every other row of twice as many (scattered highlights).
#include "engine/context.h"
#include "eventlist/popup_actions.h"
#include "eventlist/ui/event_list_view.h"
#include "platform/clock.h"
#include "sound/null_services.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QListView>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

void fill(EventList& list, int rows) {
    QRandomGenerator rng(42);
    list.beginBulk(rows);
    for (int i = 0; i < rows; ++i) {
        const QDate day = QDate(2026, 1, 1).addDays(rng.bounded(730));
        const QString dateTime =
            day.toString(QStringLiteral("yyyy/MM/dd")) + QStringLiteral("-%1:%2:00")
                                                             .arg(rng.bounded(24), 2, 10, QLatin1Char('0'))
                                                             .arg(rng.bounded(60), 2, 10, QLatin1Char('0'));
        list.insertRow(QStringLiteral("-"), dateTime, QStringLiteral("Event number %1").arg(i), false);
    }
    list.endBulk();
}

// Seconds of one delete from the popup over `total` rows with every `step`th row highlighted.
double measure(int total, int step, int expectedLeft) {
    QTemporaryDir dir;
    FakeClock clock(QDateTime(QDate(2026, 11, 23), QTime(12, 0, 0)));
    NullNotices notices;
    NullSound sound;
    Context ctx(clock, notices, sound);
    ctx.setStartValues(dir.path());
    fill(ctx.eventList, total);
    EventListView view(ctx);
    view.show();
    QApplication::processEvents();

    ListModel& rows = ctx.eventList.rows;
    QItemSelection highlights;
    for (int r = 0; r < total; r += step)
        highlights.select(rows.index(r), rows.index(r));
    if (step == 1)
        highlights = QItemSelection(rows.index(0), rows.index(total - 1));
    rows.selection()->select(highlights, QItemSelectionModel::Select);
    rows.setCurrent(total / 2);
    QApplication::processEvents();

    QElapsedTimer timer;
    timer.start();
    deleteFromPopup(ctx);
    QApplication::processEvents(); // the view catches up, as it would before the next paint
    const double seconds = timer.nsecsElapsed() / 1e9;
    if (rows.count() != expectedLeft || notices.warnings != 0) {
        std::fprintf(stderr, "%d rows left of %d, expected %d\n", rows.count(), total, expectedLeft);
        std::exit(1);
    }
    return seconds;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    const int deleted = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100000;
    const int repeats = argc > 2 ? std::max(1, QString::fromLocal8Bit(argv[2]).toInt()) : 3;

    std::vector<double> all, scattered;
    for (int i = 0; i < repeats; ++i) {
        all.push_back(measure(deleted, 1, 0));
        scattered.push_back(measure(2 * deleted, 2, deleted));
    }
    std::printf("delete %d highlighted rows of %d (all): median %.3f s, worst %.3f s\n", deleted, deleted, median(all),
                *std::max_element(all.begin(), all.end()));
    std::printf("delete %d highlighted rows of %d (every other): median %.3f s, worst %.3f s\n", deleted, 2 * deleted,
                median(scattered), *std::max_element(scattered.begin(), scattered.end()));
    return std::max(median(all), median(scattered)) < 1.0 ? 0 : 2;
}
