// bellwick-wake: holds the one privilege the alarm clock needs to wake the computer, CAP_WAKE_ALARM, so the
// program itself does not. It makes one CLOCK_REALTIME_ALARM timer, drops every other capability, and then reads one
// number a line from standard input: milliseconds from now at which the timer goes off (0 takes it back). It
// answers each with "ok" or "error <reason>", and ends on anything else or when its input closes.
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

// A hundred years: any alarm the program can hold lies nearer.
constexpr long long kMostMs = 100LL * 366 * 24 * 3600 * 1000;

const char* reason(int error) {
    switch (error) {
    case EPERM:
    case EACCES:
        return "no permission";
    case EINVAL:
    case ENODEV:
    case EOPNOTSUPP:
        return "no real-time clock";
    default:
        return std::strerror(error);
    }
}

// The kernel asks for CAP_WAKE_ALARM whenever the timer is set: every other capability goes (a helper started
// by root has them all), and nothing it starts could gain any.
void keepOnlyWakeAlarm() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2]{};
    const unsigned bit = 1U << (CAP_WAKE_ALARM % 32);
    data[CAP_WAKE_ALARM / 32].permitted = data[CAP_WAKE_ALARM / 32].effective = bit;
    // Refused only when the capability is not held: then neither is any other worth dropping.
    syscall(SYS_capset, &header, data);
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
}

// A line of one to thirteen digits and nothing else.
bool parse(const std::string& line, long long& ms) {
    if (line.empty() || line.size() > 13)
        return false;
    ms = 0;
    for (const char c : line) {
        if (c < '0' || c > '9')
            return false;
        ms = ms * 10 + (c - '0');
    }
    return ms <= kMostMs;
}

int refuse() {
    std::fputs("bellwick-wake: refused a line that is no number of milliseconds in range\n", stderr);
    return 2;
}

bool answer(const char* text) {
    return std::printf("%s\n", text) > 0 && std::fflush(stdout) == 0;
}

} // namespace

int main() {
    const int fd = timerfd_create(CLOCK_REALTIME_ALARM, TFD_CLOEXEC);
    const int createError = fd < 0 ? errno : 0;
    keepOnlyWakeAlarm();
    std::string line;
    for (int c = std::getchar(); c != EOF; c = std::getchar()) {
        if (c != '\n') {
            line += static_cast<char>(c);
            if (line.size() > 13)
                return refuse();
            continue;
        }
        long long ms = 0;
        if (!parse(line, ms))
            return refuse();
        line.clear();
        if (fd < 0) {
            if (!answer((std::string("error ") + reason(createError)).c_str()))
                return 1;
            continue;
        }
        itimerspec spec{};
        spec.it_value.tv_sec = static_cast<time_t>(ms / 1000);
        spec.it_value.tv_nsec = static_cast<long>(ms % 1000) * 1000000L;
        const bool set = timerfd_settime(fd, 0, &spec, nullptr) == 0;
        if (!answer(set ? "ok" : (std::string("error ") + reason(errno)).c_str()))
            return 1;
    }
    return line.empty() ? 0 : refuse();
}
