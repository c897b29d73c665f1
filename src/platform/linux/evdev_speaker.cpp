#include "platform/linux/evdev_speaker.h"

#include <QDir>
#include <QFile>

#include <cmath>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

bool soundsTones(const QString& path) {
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return false;
    unsigned long bits[1] = {0};
    const bool tone = ioctl(fd, EVIOCGBIT(EV_SND, sizeof(bits)), bits) >= 0 && (bits[0] & (1UL << SND_TONE));
    ::close(fd);
    return tone;
}

} // namespace

EvdevSpeaker::EvdevSpeaker(QString devicePath) : m_path(std::move(devicePath)) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { next(); });
}

EvdevSpeaker::~EvdevSpeaker() {
    if (m_fd >= 0 && !idle())
        writeTone(0);
    closeDevice();
}

QString EvdevSpeaker::findDevice() {
    const QDir byPath(QStringLiteral("/dev/input/by-path"));
    const QStringList speakers = byPath.entryList({QStringLiteral("*-event-spkr")}, QDir::System | QDir::Files);
    if (!speakers.isEmpty())
        return byPath.filePath(speakers.first());
    const QDir input(QStringLiteral("/dev/input"));
    for (const QString& name : input.entryList({QStringLiteral("event*")}, QDir::System | QDir::Files)) {
        if (soundsTones(input.filePath(name)))
            return input.filePath(name);
    }
    return QString();
}

bool EvdevSpeaker::available() {
    if (m_fd >= 0)
        return true;
    // Devices come and go with the machine, not while the program runs: look once.
    if (m_path.isEmpty() && !m_searched) {
        m_path = findDevice();
        m_searched = true;
    }
    if (m_path.isEmpty())
        return false;
    m_fd = ::open(QFile::encodeName(m_path).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return m_fd >= 0;
}

void EvdevSpeaker::queueTone(double hz, int ms) {
    if (ms <= 0 || !available() || m_queuedMs + ms > kMaxQueuedToneMs)
        return;
    m_queue.push_back({hz, ms});
    m_queuedMs += ms;
    if (!m_timer.isActive())
        next();
}

void EvdevSpeaker::next() {
    if (m_queue.empty()) {
        writeTone(0);
        return;
    }
    const Tone tone = m_queue.front();
    m_queue.pop_front();
    m_queuedMs -= tone.ms;
    writeTone(static_cast<int>(std::lround(tone.hz)));
    if (m_fd >= 0)
        m_timer.start(tone.ms);
}

void EvdevSpeaker::writeTone(int hz) {
    if (m_fd < 0)
        return;
    input_event event{};
    event.type = EV_SND;
    event.code = SND_TONE;
    event.value = hz;
    if (::write(m_fd, &event, sizeof(event)) != static_cast<ssize_t>(sizeof(event))) {
        // The device went away: the rest of the queue has nowhere to sound.
        closeDevice();
    }
}

void EvdevSpeaker::closeDevice() {
    m_timer.stop();
    m_queue.clear();
    m_queuedMs = 0;
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}
