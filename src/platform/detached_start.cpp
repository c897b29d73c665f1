#include "platform/detached_start.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace detached_start {

namespace {

// Every descriptor from `from` up is closed; close_range is there from Linux 5.9, older kernels take the loop.
void closeFrom(int from) {
#ifdef SYS_close_range
    if (syscall(SYS_close_range, static_cast<unsigned>(from), ~0U, 0U) == 0)
        return;
#endif
    struct rlimit limit {};
    const long most = getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY
                          ? static_cast<long>(limit.rlim_cur)
                          : 65536;
    for (long fd = from; fd < most; ++fd)
        close(static_cast<int>(fd));
}

[[noreturn]] void failOn(int report) {
    const int error = errno;
    (void)!write(report, &error, sizeof error);
    _exit(127);
}

// Only calls that are safe after fork in a threaded program from here on; errno goes back on `report` when
// anything fails, the exec included.
[[noreturn]] void becomeProgram(const char* path, char* const* argv, int report) {
    // Out of the way of the standard streams first: the caller may have had one of them closed.
    const int high = fcntl(report, F_DUPFD_CLOEXEC, 10);
    if (high < 0)
        failOn(report);
    const int null = open("/dev/null", O_RDWR);
    if (null < 0 || dup2(null, 0) < 0 || dup2(null, 1) < 0 || dup2(null, 2) < 0 || chdir("/") != 0)
        failOn(high);
    // The report pipe goes to 3, closed by the exec itself; everything above it goes now.
    if (dup3(high, 3, O_CLOEXEC) < 0)
        failOn(high);
    closeFrom(4);
    execv(path, argv);
    failOn(3);
}

} // namespace

bool start(const QString& program, const QStringList& arguments) {
    const QByteArray path = QFile::encodeName(program);
    std::vector<QByteArray> texts{path};
    for (const QString& a : arguments)
        texts.push_back(QFile::encodeName(a));
    std::vector<char*> argv;
    for (QByteArray& t : texts)
        argv.push_back(t.data());
    argv.push_back(nullptr);

    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0)
        return false;
    const pid_t child = fork();
    if (child < 0) {
        close(report[0]);
        close(report[1]);
        return false;
    }
    if (child == 0) {
        // A new session without a terminal, and a second fork so that it can never take one again; the
        // middle process ends at once and the program is left to init.
        close(report[0]);
        if (setsid() < 0)
            _exit(127);
        const pid_t grandchild = fork();
        if (grandchild < 0)
            _exit(127);
        if (grandchild > 0)
            _exit(0);
        becomeProgram(path.constData(), argv.data(), report[1]);
    }
    close(report[1]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    int error = 0;
    ssize_t got;
    while ((got = read(report[0], &error, sizeof error)) < 0 && errno == EINTR) {
    }
    close(report[0]);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 && got == 0;
}

} // namespace detached_start
