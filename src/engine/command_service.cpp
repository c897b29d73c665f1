#include "engine/command_service.h"

#include "alarmset/alarm_set_links.h"
#include "engine/alarm_event.h"
#include "engine/command_recurring.h"
#include "engine/context.h"
#include "engine/wake_alarm.h"
#include "message/message_text.h"
#include "platform/clock.h"
#include "recurring/recurring_rows.h"
#include "sound/routed_notices.h"

#include <QDate>
#include <QHash>
#include <QJsonArray>
#include <QThread>

#include <utility>

namespace command_service {

namespace {

using command_protocol::Event;

QByteArray refusal(const QString& text) {
    return command_protocol::toLine({{"ok", false}, {"error", text}});
}

bool isDate(const QString& text) {
    return text.size() == 10 && QDate::fromString(text, QStringLiteral("yyyy/MM/dd")).isValid();
}

bool isField(const QString& text) {
    if (text.isEmpty() || text.size() > 2)
        return false;
    for (const QChar c : text)
        if (!c.isDigit() || c.unicode() > '9')
            return false;
    return true;
}

// Whether a system-modal box stands, or the work it interrupted has yet to end: today's lists are not to
// change under that work.
bool boxStands(const Context& ctx) {
    return !ctx.front.trayEnabled || QThread::currentThread()->loopLevel() > 1;
}

// "hh:mm" or "hh:mm:ss" as the Add writes it, when it takes it.
QString fullTime(const QString& time) {
    QStringList fields = time.split(QLatin1Char(':'));
    if (fields.size() == 2)
        fields.append(QStringLiteral("00"));
    for (QString& f : fields)
        if (f.size() == 1)
            f.prepend(QLatin1Char('0'));
    return fields.join(QLatin1Char(':'));
}

struct Armed {
    AddResult result;
    Event event;
};

// The Add of the Alarm Set window for a date and a 24-hour time.
Armed arm(Context& ctx, const command_protocol::Request& request) {
    // The user may be entering an event on the window at this moment: what the Add keeps of the event being
    // entered, the play word last chosen and the row the Input Message window writes to stay theirs.
    const NewEvent entered = ctx.newEvent;
    const int currentRow = ctx.today.alarms.currentIndex();
    EventEntry entry{request.date, entryControls(request.time, request.plays), false, request.message, false};
    QString playWord = request.plays;
    const AddResult result = addEvent(ctx, entry, playWord, AlarmSetLinks());
    const Event added{
        request.date, ctx.newEvent.time, playWord, message_text::shown(message_text::typed(request.message)), {}};
    ctx.newEvent = entered;
    if (result == AddResult::Today) {
        const int at = ctx.today.alarms.currentIndex();
        ctx.today.alarms.selectOnly(currentRow >= at ? currentRow + 1 : currentRow);
    }
    if (ctx.wake)
        ctx.wake->update();
    return {result, added};
}

QByteArray add(Context& ctx, RoutedNotices& notices, command_protocol::Request request, WaitingAdds* waiting) {
    // The first touch loads the window and arms the schedule, as it would at the user's first Add, and its
    // reports (bad records) show as at any first touch.
    ctx.touchAlarmSet();
    if (request.inSeconds > 0) {
        const QDateTime at = ctx.clock.now().addSecs(request.inSeconds);
        if (at.date().year() > 9999)
            return refusal(QStringLiteral("Invalid input of date")); // the date text holds four digits of year
        request.date = dateText(at);
        request.time = timeText(at);
        request.inSeconds = 0;
    } else if (request.date.isEmpty()) {
        request.date = ctx.clock.dateText();
    }
    if (!isDate(request.date))
        return refusal(QStringLiteral("Invalid input of date"));
    // The window stores a passed day's event where it never rings; a script is told instead.
    if (request.date < ctx.clock.dateText())
        return refusal(QStringLiteral("Day was passed"));
    if (!alarm_event::playWords().contains(request.plays))
        return refusal(QStringLiteral("Invalid input"));

    if (waiting && boxStands(ctx)) {
        waiting->push(request);
        const Event coming{request.date,
                           fullTime(request.time),
                           request.plays,
                           message_text::shown(message_text::typed(request.message)),
                           {}};
        return command_protocol::toLine({{"ok", true}, {"queued", true}, {"event", command_protocol::toJson(coming)}});
    }
    RoutedNotices::Capture capture(notices);
    const Armed armed = arm(ctx, request);
    if (!capture.warnings().isEmpty())
        return refusal(capture.warnings().join(QLatin1Char('\n')));
    if (armed.result != AddResult::Today && armed.result != AddResult::Schedule)
        return refusal(QStringLiteral("Invalid input"));
    return command_protocol::toLine({{"ok", true}, {"event", command_protocol::toJson(armed.event)}});
}

QByteArray list(Context& ctx) {
    ctx.touchAlarmSet();
    QJsonObject answer{{"ok", true}};
    if (ctx.wake) {
        ctx.wake->update();
        if (ctx.wake->wakeAt().isValid())
            answer.insert("wakeAt", dateText(ctx.wake->wakeAt()) + QLatin1Char(' ') + timeText(ctx.wake->wakeAt()));
    }
    QJsonArray events;
    for (Event e : command_recurring::listEvents(ctx)) {
        if (ctx.wake)
            e.wake = ctx.wake->stateOf(e.date, e.time);
        events.append(command_protocol::toJson(e));
    }
    answer.insert("events", events);
    return command_protocol::toLine(answer);
}

} // namespace

EntryControls entryControls(const QString& time, const QString& plays) {
    QStringList fields = time.split(QLatin1Char(':'));
    if (fields.size() == 2)
        fields.append(QStringLiteral("00"));
    EntryControls c;
    if (fields.size() != 3)
        return c;
    for (QString& f : fields)
        if (!isField(f))
            f.clear();
    const int hour = fields[0].isEmpty() ? -1 : fields[0].toInt();
    c.amPm = hour >= 12 && hour <= 23 ? QStringLiteral("PM") : QStringLiteral("AM");
    if (hour == 0 || hour == 12)
        c.hourBox = QStringLiteral("12");
    else if (hour > 12 && hour <= 23)
        c.hourBox = QString::number(hour - 12);
    else
        c.hourBox = fields[0];
    c.minuteBox = fields[1];
    c.secondBox = fields[2];
    c.secondIndex = fields[2].isEmpty() ? -1 : fields[2].toInt();
    c.playCountIndex = static_cast<int>(alarm_event::playWords().indexOf(plays));
    c.playCountText = plays;
    return c;
}

QList<Event> comingEvents(const Context& ctx) {
    const QString today = ctx.clock.dateText();
    // The messages of each time in the order they are taken when the alarms of that time ring: the ringing
    // alarm takes the first left of its time (of its minute when seconds are off), whatever it came with.
    const qsizetype keyLength = ctx.options.noSecond ? 5 : 8;
    QHash<QString, QStringList> messages;
    for (const QString& row : ctx.today.messages.items())
        messages[alarm_event::timeOf(row).left(keyLength).toString()].append(alarm_event::messageOfMessageRow(row));
    QList<Event> events;
    for (const QString& row : ctx.today.alarms.items()) {
        const QString time = alarm_event::timeOf(row).toString();
        QStringList& ofTime = messages[time.left(keyLength)];
        const QString message = ofTime.isEmpty() ? QString() : ofTime.takeFirst();
        events.append({today, time, alarm_event::wholeWordFromTodayRow(row), message_text::shown(message), {}});
    }
    for (const QString& row : ctx.eventList.rows.items()) {
        if (alarm_event::rowDate(row) <= today || recurring_rows::isRecurringRow(row))
            continue; // today's coming ones are armed above; the rest have passed; recurring ones come apart
        const alarm_event::CrackedRow cracked = alarm_event::crackRow(row);
        QString word;
        QChar mark;
        alarm_event::fromShortWord(
            alarm_event::shortWordFromMark(cracked.mark.isEmpty() ? QChar() : cracked.mark.front()), word, mark);
        events.append({cracked.date, cracked.time, word, message_text::shown(cracked.message), {}});
    }
    return events;
}

WaitingAdds::WaitingAdds(Context& ctx) : m_ctx(ctx) {
    m_retry.setInterval(200);
    QObject::connect(&m_retry, &QTimer::timeout, [this] { armWhenFree(); });
}

void WaitingAdds::push(const command_protocol::Request& request) {
    m_adds.append(request);
    m_retry.start();
}

bool WaitingAdds::armWhenFree() {
    if (boxStands(m_ctx))
        return m_adds.isEmpty();
    m_retry.stop();
    // No one waits for the answer any more: the Add's warnings open as they would for the window's Add.
    const QList<command_protocol::Request> adds = std::exchange(m_adds, {});
    for (const command_protocol::Request& request : adds)
        arm(m_ctx, request);
    return true;
}

namespace {

QByteArray serveOne(Context& ctx, RoutedNotices& notices, const QByteArray& requestLine, WaitingAdds* waiting) {
    const command_protocol::Request request =
        command_protocol::requestFromJson(command_protocol::fromLine(requestLine));
    if (request.command == QLatin1String("add") && !request.every.isEmpty())
        return command_recurring::add(ctx, request);
    if (request.command == QLatin1String("add"))
        return add(ctx, notices, request, waiting);
    if (request.command == QLatin1String("remove"))
        return command_recurring::remove(ctx, request);
    if (request.command == QLatin1String("export"))
        return command_recurring::exportAll(ctx);
    if (request.command == QLatin1String("import"))
        return command_recurring::importText(ctx, notices, request.ics);
    if (request.command == QLatin1String("list"))
        return list(ctx);
    return refusal(QStringLiteral("unknown request"));
}

} // namespace

QByteArray serve(Context& ctx, RoutedNotices& notices, const QByteArray& requestLine, WaitingAdds& waiting) {
    return serveOne(ctx, notices, requestLine, &waiting);
}

QByteArray serve(Context& ctx, RoutedNotices& notices, const QByteArray& requestLine) {
    return serveOne(ctx, notices, requestLine, nullptr);
}

} // namespace command_service
