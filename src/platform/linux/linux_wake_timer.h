#pragma once

#include "platform/wake_timer.h"

#include <QStringList>

#include <memory>

class QProcess;
class QSocketNotifier;

// A CLOCK_REALTIME_ALARM timer. A process that holds CAP_WAKE_ALARM arms it itself; any other hands the times to
// the small helper bellwick-wake, which alone holds the capability, over a pipe. A CLOCK_BOOTTIME timer of our
// own runs beside it, to tell when the time has come and how much of it is left.
class LinuxWakeTimer : public WakeTimer {
public:
    // The helper is the first of these paths that is an executable file.
    explicit LinuxWakeTimer(QStringList helperPaths);
    LinuxWakeTimer(const LinuxWakeTimer&) = delete;
    LinuxWakeTimer& operator=(const LinuxWakeTimer&) = delete;
    ~LinuxWakeTimer() override;

    bool arm(qint64 msFromNow) override;
    void disarm() override;
    qint64 remainingMs() const override;
    QString status() const override;

private:
    enum class Way { Untried, Direct, Helper, None };
    void chooseWay();
    bool startHelper();
    bool setAlarm(qint64 ms);
    bool askHelper(qint64 ms);
    void setWatch(qint64 ms);
    void giveUp(const QString& reason);

    QStringList m_helperPaths;
    Way m_way = Way::Untried;
    int m_alarmFd = -1;
    int m_watchFd = -1;
    std::unique_ptr<QSocketNotifier> m_watchNotifier;
    std::unique_ptr<QProcess> m_helper;
    QString m_reason;
    bool m_armed = false;
};

// The reason a wake-up timer could not be made or set, from the errno.
QString wakeFailureReason(int error);
