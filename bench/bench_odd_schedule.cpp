// Measures the first opening of the Alarm Set window (the schedule's load and the event list on screen) over
// schedules of odd shape. One case per run, so the peak memory is that case's own.
// Then the View Messages button, which shows today's alarms beside their messages, and the window of the
// alarm as it rings.
// Usage: bench_odd_schedule long-message|one-line|empty-lines [megabytes or lines]
//   long-message: one event whose message is 50 MB
//   one-line:     50 MB without a line break
//   empty-lines:  1,000,000 empty lines
#include "alarmset/ui/alarm_set_host.h"
#include "alarmset/ui/alarm_set_window.h"
#include "engine/context.h"
#include "engine/ui/message_window.h"
#include "platform/clock.h"
#include "sound/null_services.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <cstdio>

namespace {

class CountingErrors : public ErrorList {
public:
    int lines = 0;
    QString last;
    void addLine(const QString& line) override {
        ++lines;
        last = line;
    }
    void showList() override {}
};

class CountingNotices : public NullNotices {
public:
    CountingErrors errors;
    ErrorList& newErrorList() override { return errors; }
    ErrorList& sharedErrorList() override { return errors; }
};

QByteArray schedule(const QString& shape, qint64 size) {
    if (shape == QLatin1String("long-message")) {
        QByteArray message(size, 'm');
        for (qint64 i = 79; i < size; i += 80)
            message[i] = ' ';
        // Due later today, so the message is in today's lists as well as in the event list.
        return '"' + message + "2026/11/23once18:00:00\"\r\n";
    }
    if (shape == QLatin1String("one-line"))
        return QByteArray(size, 'x');
    return QByteArray(size, '\n');
}

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString shape = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("long-message");
    const qint64 size = argc > 2 ? QString::fromLocal8Bit(argv[2]).toLongLong()
                                 : (shape == QLatin1String("empty-lines") ? 1000000 : 50 * 1024 * 1024);

    QTemporaryDir dir;
    FakeClock clock(QDateTime(QDate(2026, 11, 23), QTime(12, 0, 0)));
    CountingNotices notices;
    NullSound sound;
    Context ctx(clock, notices, sound);
    ctx.setStartValues(dir.path());
    QFile file(ctx.appFile(QStringLiteral("future.dat")));
    const QByteArray bytes = schedule(shape, size);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        std::fprintf(stderr, "cannot write the schedule\n");
        return 1;
    }
    file.close();
    const long before = peakMegabytes();

    AlarmSetHost host(ctx);
    ctx.alarmSetUi = &host;
    QElapsedTimer timer;
    timer.start();
    host.showAlarmSet();
    const double loaded = timer.nsecsElapsed() / 1e9;
    AlarmSetWindow* window = host.form();
    if (!window)
        return 1;
    window->comingAction->trigger(); // the event list
    window->repaint();
    QApplication::processEvents();
    const double shown = timer.nsecsElapsed() / 1e9;
    timer.restart();
    window->viewMessagesButton->click(); // today's alarms beside their messages
    window->repaint();
    QApplication::processEvents();
    const double messages = timer.nsecsElapsed() / 1e9;
    timer.restart();
    double ringing = 0;
    if (ctx.today.messages.count() > 0) { // the alarm's own window, as when it rings
        auto* ring = new MessageWindow(ctx, ctx.today.messages.item(0));
        ring->repaint();
        QApplication::processEvents();
        ringing = timer.nsecsElapsed() / 1e9;
        delete ring;
    }

    std::printf("%s (%lld bytes): load %.3f s, event list shown %.3f s, View Messages %.3f s, message window %.3f s, "
                "%d event rows, %d error lines%s%s, peak %ld MB (%ld MB before the load)\n",
                qPrintable(shape), static_cast<long long>(bytes.size()), loaded, shown, messages, ringing,
                ctx.eventList.rows.count(), notices.errors.lines, notices.errors.lines ? ", last: " : "",
                qPrintable(notices.errors.last), peakMegabytes(), before);
    return shown < 0.5 && messages < 0.5 && ringing < 0.5 ? 0 : 2;
}
