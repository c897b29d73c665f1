#include "platform/linux/linux_wake_timer.h"

#include <QFileInfo>
#include <QProcess>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <sys/timerfd.h>
#include <unistd.h>

namespace {

// The helper answers at once; a helper that does not is taken as gone.
constexpr int kHelperAnswerMs = 2000;

itimerspec after(qint64 ms) {
    itimerspec spec{};
    spec.it_value.tv_sec = static_cast<time_t>(ms / 1000);
    spec.it_value.tv_nsec = static_cast<long>(ms % 1000) * 1000000L;
    return spec;
}

} // namespace

QString wakeFailureReason(int error) {
    switch (error) {
    case EPERM:
    case EACCES:
        return QStringLiteral("no permission");
    case EINVAL:
    case ENODEV:
    case EOPNOTSUPP:
        return QStringLiteral("no real-time clock");
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

LinuxWakeTimer::LinuxWakeTimer(QStringList helperPaths) : m_helperPaths(std::move(helperPaths)) {
    m_watchFd = timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK);
    if (m_watchFd < 0)
        return;
    m_watchNotifier = std::make_unique<QSocketNotifier>(m_watchFd, QSocketNotifier::Read);
    QObject::connect(m_watchNotifier.get(), &QSocketNotifier::activated, [this] {
        uint64_t expirations = 0;
        if (::read(m_watchFd, &expirations, sizeof expirations) != sizeof expirations)
            return;
        m_armed = false;
        if (onExpired)
            onExpired();
    });
}

LinuxWakeTimer::~LinuxWakeTimer() {
    m_watchNotifier.reset();
    if (m_helper) {
        // The helper ends when its input closes, and its timer with it.
        m_helper->closeWriteChannel();
        if (!m_helper->waitForFinished(1000))
            m_helper->kill();
        m_helper->waitForFinished(1000);
    }
    if (m_alarmFd >= 0)
        ::close(m_alarmFd);
    if (m_watchFd >= 0)
        ::close(m_watchFd);
}

void LinuxWakeTimer::giveUp(const QString& reason) {
    m_way = Way::None;
    m_reason = reason;
    m_armed = false;
}

void LinuxWakeTimer::chooseWay() {
    m_alarmFd = timerfd_create(CLOCK_REALTIME_ALARM, TFD_CLOEXEC);
    if (m_alarmFd >= 0) {
        m_way = Way::Direct;
        return;
    }
    const int error = errno;
    if (error != EPERM) {
        giveUp(wakeFailureReason(error));
        return;
    }
    if (startHelper())
        m_way = Way::Helper;
}

bool LinuxWakeTimer::startHelper() {
    QString path;
    for (const QString& candidate : m_helperPaths) {
        const QFileInfo info(candidate);
        if (info.isFile() && info.isExecutable()) {
            path = info.absoluteFilePath();
            break;
        }
    }
    if (path.isEmpty()) {
        giveUp(QStringLiteral("no helper"));
        return false;
    }
    m_helper = std::make_unique<QProcess>();
    m_helper->setProgram(path);
    m_helper->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_helper->start(QIODevice::ReadWrite);
    if (!m_helper->waitForStarted(kHelperAnswerMs)) {
        m_helper.reset();
        giveUp(QStringLiteral("no helper"));
        return false;
    }
    return true;
}

bool LinuxWakeTimer::askHelper(qint64 ms) {
    const QByteArray line = QByteArray::number(ms) + '\n';
    if (m_helper->write(line) != line.size() || !m_helper->waitForBytesWritten(kHelperAnswerMs)) {
        giveUp(QStringLiteral("the helper ended"));
        return false;
    }
    while (!m_helper->canReadLine()) {
        if (!m_helper->waitForReadyRead(kHelperAnswerMs)) {
            giveUp(QStringLiteral("the helper ended"));
            return false;
        }
    }
    const QByteArray answer = m_helper->readLine().trimmed();
    if (answer == "ok")
        return true;
    giveUp(answer.startsWith("error ") ? QString::fromUtf8(answer.mid(6)) : QStringLiteral("the helper ended"));
    return false;
}

bool LinuxWakeTimer::setAlarm(qint64 ms) {
    if (m_way == Way::Untried)
        chooseWay();
    if (m_way == Way::Helper)
        return askHelper(ms);
    if (m_way != Way::Direct)
        return false;
    // Relative, so a clock set by hand in between cannot move it.
    const itimerspec spec = after(ms);
    if (timerfd_settime(m_alarmFd, 0, &spec, nullptr) == 0)
        return true;
    giveUp(wakeFailureReason(errno));
    return false;
}

void LinuxWakeTimer::setWatch(qint64 ms) {
    if (m_watchFd < 0)
        return;
    const itimerspec spec = after(ms);
    timerfd_settime(m_watchFd, 0, &spec, nullptr);
}

bool LinuxWakeTimer::arm(qint64 msFromNow) {
    const qint64 ms = std::max<qint64>(msFromNow, 1);
    m_armed = setAlarm(ms);
    setWatch(m_armed ? ms : 0);
    return m_armed;
}

void LinuxWakeTimer::disarm() {
    if (m_armed)
        setAlarm(0);
    m_armed = false;
    setWatch(0);
}

qint64 LinuxWakeTimer::remainingMs() const {
    itimerspec left{};
    if (!m_armed || m_watchFd < 0 || timerfd_gettime(m_watchFd, &left) != 0)
        return -1;
    const qint64 ms = qint64(left.it_value.tv_sec) * 1000 + left.it_value.tv_nsec / 1000000;
    return ms > 0 || left.it_value.tv_nsec > 0 ? ms : -1;
}

QString LinuxWakeTimer::status() const {
    if (m_way == Way::None)
        return QStringLiteral("unavailable: ") + m_reason;
    return m_armed ? QStringLiteral("armed") : QStringLiteral("off");
}
