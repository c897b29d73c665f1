#pragma once

#include <QString>

#include <functional>

// The one timer that wakes the computer from a suspend. Times are durations from now, not moments: the program's
// clock may be offset from the kernel's (a test's faked time), and a duration means the same to both.
class WakeTimer {
public:
    virtual ~WakeTimer() = default;
    // Sets the timer to go off this many milliseconds from now (at least 1), in place of any earlier time; false
    // when it cannot, and status() then says why.
    virtual bool arm(qint64 msFromNow) = 0;
    virtual void disarm() = 0;
    // Milliseconds until the armed time, counting a suspend; -1 when nothing is armed or it has gone off.
    virtual qint64 remainingMs() const = 0;
    // "armed", "off", or "unavailable: <reason>".
    virtual QString status() const = 0;
    // Called when an armed time has come, once the program runs again.
    std::function<void()> onExpired;
};

// For tests and systems without such timers: never arms.
class NullWakeTimer : public WakeTimer {
public:
    bool arm(qint64) override { return false; }
    void disarm() override {}
    qint64 remainingMs() const override { return -1; }
    QString status() const override { return QStringLiteral("unavailable: not supported"); }
};
