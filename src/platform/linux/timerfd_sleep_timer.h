#pragma once

#include "platform/sleep_timer.h"

#include <QSocketNotifier>

#include <memory>

// The wait on CLOCK_BOOTTIME, which counts the time the machine was suspended, and a watch on CLOCK_REALTIME that
// the kernel cancels when the clock is set or the machine resumes. Waits are durations, never real-time
// deadlines, so a clock shifted inside the process (libfaketime) keeps working. Without timerfd, a Qt timer.
class TimerfdSleepTimer : public SleepTimer {
public:
    TimerfdSleepTimer();
    TimerfdSleepTimer(const TimerfdSleepTimer&) = delete;
    TimerfdSleepTimer& operator=(const TimerfdSleepTimer&) = delete;
    ~TimerfdSleepTimer() override;

    void start(qint64 ms) override;
    void stop() override;
    bool isActive() const override;

private:
    void onWaitReadable();
    void onWatchReadable();
    bool armWatch();

    int m_wait = -1;
    int m_watch = -1;
    bool m_active = false;
    std::unique_ptr<QSocketNotifier> m_waitNotifier;
    std::unique_ptr<QSocketNotifier> m_watchNotifier;
    QtSleepTimer m_fallback;
};
