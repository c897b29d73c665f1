#include "platform/linux/timerfd_sleep_timer.h"

#include <cerrno>
#include <cstdint>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {
// A real-time moment no clock reaches (year 2223): the watch exists only to be cancelled.
constexpr time_t kNever = 8000000000;
} // namespace

TimerfdSleepTimer::TimerfdSleepTimer() {
    m_fallback.onTimeout = [this] {
        if (onTimeout)
            onTimeout();
    };
    m_wait = timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (m_wait >= 0) {
        m_waitNotifier = std::make_unique<QSocketNotifier>(m_wait, QSocketNotifier::Read);
        QObject::connect(m_waitNotifier.get(), &QSocketNotifier::activated, [this] { onWaitReadable(); });
    }
    m_watch = timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (m_watch >= 0 && armWatch()) {
        m_watchNotifier = std::make_unique<QSocketNotifier>(m_watch, QSocketNotifier::Read);
        QObject::connect(m_watchNotifier.get(), &QSocketNotifier::activated, [this] { onWatchReadable(); });
    }
}

TimerfdSleepTimer::~TimerfdSleepTimer() {
    m_waitNotifier.reset();
    m_watchNotifier.reset();
    if (m_wait >= 0)
        ::close(m_wait);
    if (m_watch >= 0)
        ::close(m_watch);
}

bool TimerfdSleepTimer::armWatch() {
    itimerspec never{};
    never.it_value.tv_sec = kNever;
    return timerfd_settime(m_watch, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr) == 0;
}

void TimerfdSleepTimer::start(qint64 ms) {
    if (m_wait < 0) {
        m_fallback.start(ms);
        return;
    }
    itimerspec wait{};
    ms = qMax<qint64>(1, ms); // a zero it_value would disarm it
    wait.it_value.tv_sec = time_t(ms / 1000);
    wait.it_value.tv_nsec = long(ms % 1000) * 1000000L;
    m_active = timerfd_settime(m_wait, 0, &wait, nullptr) == 0;
    if (!m_active)
        m_fallback.start(ms);
}

void TimerfdSleepTimer::stop() {
    m_fallback.stop();
    if (m_wait >= 0 && m_active) {
        const itimerspec off{};
        timerfd_settime(m_wait, 0, &off, nullptr);
    }
    m_active = false;
}

bool TimerfdSleepTimer::isActive() const {
    return m_active || m_fallback.isActive();
}

void TimerfdSleepTimer::onWaitReadable() {
    uint64_t expirations = 0;
    if (::read(m_wait, &expirations, sizeof expirations) != sizeof expirations)
        return; // stopped or re-armed after it expired: nothing to tell
    m_active = false;
    if (onTimeout)
        onTimeout();
}

void TimerfdSleepTimer::onWatchReadable() {
    uint64_t expirations = 0;
    if (::read(m_watch, &expirations, sizeof expirations) >= 0 || errno != ECANCELED)
        return;
    // Cancelled: the clock was set. The watch is armed again for the next time.
    if (!armWatch()) {
        m_watchNotifier->setEnabled(false);
    }
    if (onClockSet)
        onClockSet();
}
