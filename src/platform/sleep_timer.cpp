#include "platform/sleep_timer.h"

QtSleepTimer::QtSleepTimer() {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        if (onTimeout)
            onTimeout();
    });
}

void QtSleepTimer::start(qint64 ms) {
    m_timer.start(std::chrono::milliseconds(qMax<qint64>(0, ms)));
}
