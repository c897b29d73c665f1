#include "engine/wake_alarm.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"
#include "platform/wake_timer.h"
#include "recurring/recurring_arming.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdlib>

namespace {
// A timer found this far from the wanted time is armed again: the clock was set, or the computer slept.
constexpr qint64 kDriftMs = 1500;
} // namespace

namespace wake_plan {

namespace {

QDateTime moment(QStringView date, QStringView time, bool noSecond) {
    QTime t = QTime::fromString(time.toString(), QStringLiteral("hh:mm:ss"));
    if (noSecond && t.isValid())
        t = QTime(t.hour(), t.minute());
    return QDateTime(QDate::fromString(date.toString(), QStringLiteral("yyyy/MM/dd")), t);
}

} // namespace

std::optional<NextAlarm> nextAlarm(const Context& ctx, const QDateTime& now) {
    const QString today = dateText(now);
    const bool noSecond = ctx.options.noSecond;
    // An alarm of this very second is the tick's; one whose time has passed is reported, never rung.
    for (const QString& row : ctx.today.alarms.items()) {
        const QString time = alarm_event::timeOf(row).toString();
        const QDateTime at = moment(today, time, noSecond);
        if (at.isValid() && now < at)
            return NextAlarm{today, time, at};
    }
    // The rows stand in date order and may be a million: today's and the past are passed by in a search.
    const QStringList& rows = ctx.eventList.rows.items();
    const auto later = std::partition_point(rows.begin(), rows.end(), [&today](const QString& row) {
        return alarm_event::rowDate(row) <= QStringView(today);
    });
    for (auto row = later; row != rows.end(); ++row) {
        const QDateTime at = moment(alarm_event::rowDate(*row), alarm_event::rowTime(*row), noSecond);
        if (at.isValid())
            return NextAlarm{alarm_event::rowDate(*row).toString(), alarm_event::rowTime(*row).toString(), at};
    }
    return std::nullopt;
}

std::optional<NextAlarm> nextUnloaded(const Context& ctx, const QDateTime& now) {
    // Read at the midnight reload, when the day comes: until then only the files know these.
    std::optional<NextAlarm> next;
    if (const auto row = firstLaterRow(ctx.appFile(QStringLiteral("future.dat")), dateText(now))) {
        const QDateTime at = moment(row->first, row->second, ctx.options.noSecond);
        if (at.isValid())
            next = NextAlarm{row->first, row->second, at};
    }
    const QDateTime tomorrow(now.date().addDays(1), QTime(0, 0));
    if (const auto at = recurring_arming::nextOccurrenceAfter(ctx, tomorrow.addMSecs(-1));
        at && (!next || *at < next->ringsAt)) {
        const QString date = dateText(*at), time = timeText(*at);
        next = NextAlarm{date, time, moment(date, time, ctx.options.noSecond)};
    }
    return next;
}

QDateTime wakeTime(const QDateTime& ringsAt, const QDateTime& now, qint64 advanceMs) {
    for (const qint64 ahead : {advanceMs, std::min(advanceMs, kLastWakeMs)}) {
        const QDateTime wake = ringsAt.addMSecs(-ahead);
        if (now < wake)
            return wake;
    }
    return ringsAt;
}

std::optional<qint64> advanceMs(const QByteArray& setting, bool set) {
    if (!set)
        return 60000;
    if (setting == "off")
        return 0;
    bool ok = false;
    const qint64 seconds = setting.toLongLong(&ok);
    // Up to a day: an earlier wake would be no wake for this alarm.
    if (!ok || seconds < 0 || seconds > 86400)
        return std::nullopt;
    return seconds * 1000;
}

} // namespace wake_plan

WakeAlarm::WakeAlarm(Context& ctx, WakeTimer& timer, qint64 advanceMs)
    : m_ctx(ctx), m_timer(timer), m_advanceMs(advanceMs) {
    m_timer.onExpired = [this] { update(true); };
}

std::optional<wake_plan::NextAlarm> WakeAlarm::nextAlarm(const QDateTime& now) {
    std::optional<wake_plan::NextAlarm> next = wake_plan::nextAlarm(m_ctx, now);
    if (m_ctx.alarmSetLoaded())
        return next;
    QString seen = dateText(now);
    for (const QString& name : {QStringLiteral("future.dat"), QStringLiteral("recurring.ics")}) {
        const QFileInfo file(m_ctx.appFile(name));
        seen += QLatin1Char(' ') + QString::number(file.size()) + QLatin1Char('@') +
                QString::number(file.lastModified().toMSecsSinceEpoch());
    }
    if (seen != m_filesSeen) {
        m_filesSeen = seen;
        m_filesNext = wake_plan::nextUnloaded(m_ctx, now);
    }
    // Today's own come first; the files hold only later days'.
    return next ? next : m_filesNext;
}

void WakeAlarm::update(bool expired) {
    const QDateTime now = m_ctx.clock.now();
    m_next = m_advanceMs > 0 && !m_disabled ? nextAlarm(now) : std::nullopt;
    if (!m_next) {
        if (m_armed)
            m_timer.disarm();
        m_armed = false;
        return;
    }
    // The timer's own clock may be a little ahead of ours: a time it has reached is over.
    const QDateTime seen = expired && m_armed && now <= m_wakeAt ? m_wakeAt.addMSecs(1) : now;
    const QDateTime wake = wake_plan::wakeTime(m_next->ringsAt, seen, m_advanceMs);
    if (wake <= seen)
        return; // the alarm's own second: the tick rings it
    const qint64 wantedMs = now.msecsTo(wake);
    if (m_armed && wake == m_wakeAt && std::abs(m_timer.remainingMs() - wantedMs) < kDriftMs)
        return;
    // A timer that cannot arm is asked again only for another time, not on every tick.
    if (!m_armed && !unavailable().isEmpty() && wake == m_tried)
        return;
    m_tried = wake;
    m_wakeAt = wake;
    m_armed = m_timer.arm(std::max<qint64>(wantedMs, 1));
}

void WakeAlarm::setDisabled(bool disabled) {
    m_disabled = disabled;
    update();
}

QString WakeAlarm::unavailable() const {
    if (m_advanceMs == 0)
        return QStringLiteral("unavailable: turned off");
    if (m_disabled)
        return QStringLiteral("unavailable: alarms disabled");
    const QString status = m_timer.status();
    return status.startsWith(QLatin1String("unavailable: ")) ? status : QString();
}

QString WakeAlarm::stateOf(const QString& date, const QString& time) const {
    const QString reason = unavailable();
    if (!reason.isEmpty())
        return reason;
    return m_armed && m_next && m_next->date == date && m_next->time == time ? QStringLiteral("armed")
                                                                             : QStringLiteral("later");
}
