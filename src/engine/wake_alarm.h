#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

class Context;
class WakeTimer;

namespace wake_plan {

// The alarm that rings next: its date and time as listed, and the moment it rings (its minute's start when
// seconds are not compared).
struct NextAlarm {
    QString date; // "yyyy/mm/dd"
    QString time; // "hh:mm:ss"
    QDateTime ringsAt;
};

// The soonest alarm still to ring after this moment: today's armed ones, then the later days' of the event list.
std::optional<NextAlarm> nextAlarm(const Context& ctx, const QDateTime& now);
// Before the schedule is loaded: the soonest alarm of a later day in the schedule file and the recurring ones.
std::optional<NextAlarm> nextUnloaded(const Context& ctx, const QDateTime& now);

// A suspend that starts after the early wake must still end before the alarm: a few seconds ahead of it.
constexpr qint64 kLastWakeMs = 5000;

// When the computer must wake for an alarm ringing at ringsAt, seen at now: advanceMs earlier, or, once that has
// passed, kLastWakeMs earlier, or else at the alarm itself. The kernel refuses a suspend that would start within
// two seconds of an armed wake-up, which covers the rest.
QDateTime wakeTime(const QDateTime& ringsAt, const QDateTime& now, qint64 advanceMs);

// The advance from the text of BELLWICK_WAKE_ADVANCE: seconds, 60 when unset; 0 for "0" or "off" (no waking);
// nothing for a text that is none of these.
std::optional<qint64> advanceMs(const QByteArray& setting, bool set);

} // namespace wake_plan

// Keeps the wake-up timer on the next alarm. Looked at on every tick and after each change it hears of; arms
// again only when the wanted time differs from the armed one.
class WakeAlarm {
public:
    // An advance of 0 turns waking off.
    WakeAlarm(Context& ctx, WakeTimer& timer, qint64 advanceMs);
    WakeAlarm(const WakeAlarm&) = delete;
    WakeAlarm& operator=(const WakeAlarm&) = delete;

    // expired: the armed time has just come, by the timer's own clock.
    void update(bool expired = false);
    // A disabled clock rings nothing, so it wakes nobody.
    void setDisabled(bool disabled);

    // For the alarm of this date and time: "armed" when the timer is set for it, "later", or
    // "unavailable: <reason>".
    QString stateOf(const QString& date, const QString& time) const;
    // The armed wake-up, in the program's clock; invalid when none is armed.
    QDateTime wakeAt() const { return m_armed ? m_wakeAt : QDateTime(); }

private:
    QString unavailable() const;
    std::optional<wake_plan::NextAlarm> nextAlarm(const QDateTime& now);

    Context& m_ctx;
    WakeTimer& m_timer;
    const qint64 m_advanceMs;
    bool m_disabled = false;
    bool m_armed = false;
    std::optional<wake_plan::NextAlarm> m_next;
    QDateTime m_wakeAt;
    QDateTime m_tried; // the last time asked of a timer that could not arm it
    // The files' answer while the schedule is not loaded, read again when a file or the day changes.
    QString m_filesSeen;
    std::optional<wake_plan::NextAlarm> m_filesNext;
};
