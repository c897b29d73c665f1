#include "engine/tick_planner.h"

#include "engine/context.h"
#include "platform/clock.h"

namespace tick_planner {
namespace {

QDateTime startOfNextMinute(const QDateTime& now) {
    const QTime t = now.time();
    return QDateTime(now.date(), QTime(t.hour(), t.minute())).addSecs(60);
}

QDateTime earlier(const QDateTime& a, const QDateTime& b) {
    if (!a.isValid())
        return b;
    if (!b.isValid())
        return a;
    return b < a ? b : a;
}

// The second the next alarm fires in, or the second 0 at which the tick reports it as slipped.
QDateTime alarmDuty(const Context& ctx, const QDateTime& now, bool* rings = nullptr) {
    const TickState& tick = ctx.tick;
    if (tick.nextAlarm.isEmpty())
        return {};
    const QString nowText = timeText(now);
    QString next = tick.nextAlarm;
    if (ctx.options.noSecond)
        next = next.left(5) + QStringLiteral(":00");
    else if (next.size() == 5)
        next += QStringLiteral(":00");
    const QString compared = ctx.options.noSecond ? nowText.left(5) + QStringLiteral(":00") : nowText;
    if (next == compared)
        return now;
    if (next < compared)
        return startOfNextMinute(now); // its minute is over, or will be at the next second 0
    const QTime at = QTime::fromString(next, QStringLiteral("hh:mm:ss"));
    if (!at.isValid())
        return {};
    if (rings)
        *rings = true;
    return QDateTime(now.date(), at);
}

// The ring of the every-N-minutes chime, and the resync of a mark the clock has overtaken.
QDateTime chimeDuty(const Context& ctx, const QDateTime& now) {
    const ChimeState& chime = ctx.chime;
    const QTime t = now.time();
    const int mark = chime.nextMark;
    QDateTime ring;
    bool overtaken = false;
    if (chime.interval == 60) {
        if (mark == t.hour())
            return now;
        if (mark >= 0 && mark < 24)
            ring = QDateTime(now.date().addDays(mark > t.hour() ? 0 : 1), QTime(mark, 0));
        overtaken = mark < t.hour() && !(mark == 0 && t.hour() == 23);
    } else {
        if (mark == t.minute())
            return now;
        if (mark >= 0 && mark < 60) {
            ring = QDateTime(now.date(), QTime(t.hour(), mark));
            if (mark < t.minute())
                ring = ring.addSecs(3600);
        }
        overtaken = mark < t.minute() && !(mark == 0 && t.minute() >= 30);
    }
    if (!overtaken)
        return ring;
    const QDateTime resync = QDateTime(now.date(), QTime(t.hour(), t.minute(), 30));
    if (t.second() == 30)
        return now;
    return earlier(ring, t.second() < 30 ? resync : resync.addSecs(60));
}

} // namespace

QDateTime nextDuty(const Context& ctx, const QDateTime& now, int reloadMinute) {
    const QTime t = now.time();
    if (t.hour() == 0 && t.minute() == 0 && reloadMinute != 0)
        return now;
    QDateTime duty = QDateTime(now.date().addDays(1), QTime(0, 0));
    const TickState& tick = ctx.tick;
    if (!tick.on)
        return duty;
    // A new head of the queue is taken at once; a queue run empty hides the Alarm Set window.
    if (tick.needNextAlarm || (!tick.haveAlarms && !tick.alarmSetWanted))
        return now;
    duty = earlier(duty, alarmDuty(ctx, now));
    if (ctx.chime.on)
        duty = earlier(duty, chimeDuty(ctx, now));
    return duty;
}

TickPlan plan(const Context& ctx, const QDateTime& now, const TickWatch& watch) {
    TickPlan plan;
    const QDateTime duty = nextDuty(ctx, now, watch.reloadMinute);
    const qint64 toDuty = duty.isValid() ? qMax<qint64>(0, now.msecsTo(duty)) : -1;
    if (ctx.tick.on && !ctx.tick.needNextAlarm) {
        bool rings = false;
        const QDateTime alarm = alarmDuty(ctx, now, &rings);
        const qint64 toAlarm = rings ? now.msecsTo(alarm) : -1;
        plan.readySound = toAlarm > 0 && toAlarm <= kLeadMs + kPaceMs;
    }
    plan.paced = watch.alarmSetShown || watch.recentlyChanged || watch.soundNeedsTick || ctx.soundChoice.repeatSweep ||
                 (toDuty >= 0 && toDuty <= kLeadMs);
    if (plan.paced)
        plan.delayMs = toDuty > 0 ? qMin(kPaceMs, toDuty + kLandMs) : kPaceMs;
    else
        plan.delayMs = toDuty < 0 ? kMaxSleepMs : qMin(toDuty - kLeadMs, kMaxSleepMs);
    return plan;
}

} // namespace tick_planner
