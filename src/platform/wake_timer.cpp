#include "platform/wake_timer.h"

QtWakeTimer::QtWakeTimer() {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        if (onTimeout)
            onTimeout();
    });
}

void QtWakeTimer::start(qint64 ms) {
    m_timer.start(std::chrono::milliseconds(qMax<qint64>(0, ms)));
}
