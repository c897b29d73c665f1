#include "platform/runtime_folder.h"

#include "platform/data_folder.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace runtime_folder {

namespace {

// $XDG_RUNTIME_DIR must be ours alone and no link, as the base directory rules ask.
bool isPrivateParent(const QString& dir) {
    struct stat st {};
    return QDir::isAbsolutePath(dir) && ::lstat(QFile::encodeName(dir).constData(), &st) == 0 && S_ISDIR(st.st_mode) &&
           st.st_uid == ::geteuid() && (st.st_mode & 077) == 0;
}

// The cache and data folders may be links and readable by others, but no one else may write in them, or the
// folder we make there could be swapped.
bool isOwnParent(const QString& dir) {
    if (!QDir::isAbsolutePath(dir) || !QDir().mkpath(dir))
        return false;
    struct stat st {};
    return ::stat(QFile::encodeName(dir).constData(), &st) == 0 && S_ISDIR(st.st_mode) && st.st_uid == ::geteuid() &&
           (st.st_mode & 022) == 0;
}

QString cacheHome() {
    const QString cache = qEnvironmentVariable("XDG_CACHE_HOME");
    return !QDir::isAbsolutePath(cache) ? QDir::homePath() + QStringLiteral("/.cache") : cache;
}

} // namespace

bool makePrivate(const QString& folder) {
    // No trailing '/': with one, a link at the name would be followed despite O_NOFOLLOW.
    const QByteArray name = QFile::encodeName(QDir::cleanPath(folder));
    if (name.isEmpty() || (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST))
        return false;
    const int fd = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return false;
    // Checked and closed on the open folder itself, so it cannot be swapped between the check and the change.
    struct stat st {};
    bool ok = ::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode) && st.st_uid == ::geteuid();
    if (ok && (st.st_mode & 077) != 0)
        ok = ::fchmod(fd, 0700) == 0;
    ::close(fd);
    return ok;
}

QString path() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (isPrivateParent(runtime) && makePrivate(runtime + QStringLiteral("/bellwick")))
        return QDir::cleanPath(runtime) + QStringLiteral("/bellwick/");
    const QString cache = cacheHome();
    if (isOwnParent(cache) && makePrivate(cache + QStringLiteral("/bellwick")))
        return QDir::cleanPath(cache) + QStringLiteral("/bellwick/");
    const QString program = data_folder::programFolder();
    if (isOwnParent(program) && makePrivate(program + QStringLiteral("run")))
        return program + QStringLiteral("run/");
    return QString();
}

} // namespace runtime_folder
