#pragma once

#include <QTimer>

#include <functional>

// One single-shot wait for the tick's sleep. The system's kind keeps counting across a suspend and tells when the
// system clock was set (by hand, by time sync, or on resume), so a wait computed from the old time is looked at anew.
class SleepTimer {
public:
    virtual ~SleepTimer() = default;
    // Replaces the wait armed before.
    virtual void start(qint64 ms) = 0;
    virtual void stop() = 0;
    virtual bool isActive() const = 0;

    std::function<void()> onTimeout;
    std::function<void()> onClockSet;
};

// A precise Qt timer: stops counting while the machine sleeps and never reports a set clock. For tests, and where
// the system's timers cannot be had.
class QtSleepTimer : public SleepTimer {
public:
    QtSleepTimer();
    void start(qint64 ms) override;
    void stop() override { m_timer.stop(); }
    bool isActive() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
};
