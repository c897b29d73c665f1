#include "platform/data_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace data_folder {

QString programFolder() {
    QString base = qEnvironmentVariable("XDG_DATA_HOME");
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/.local/share");
    return base + QStringLiteral("/bellwick/");
}

QString bundledFolder() {
    const QString appDir = QCoreApplication::applicationDirPath();
    for (const QString& candidate :
         {appDir + QStringLiteral("/share"), appDir + QStringLiteral("/../share/bellwick"),
          QStringLiteral("/usr/share/bellwick"), QStringLiteral("/usr/local/share/bellwick")}) {
        if (QFileInfo::exists(candidate + QStringLiteral("/ding.wav")))
            return QDir::cleanPath(candidate);
    }
    return appDir + QStringLiteral("/share");
}

bool makePrivate(const QString& folder) {
    const QByteArray path = QFile::encodeName(QDir::cleanPath(folder));
    if (path.isEmpty() || path.front() != '/')
        return false;
    // The folders that are missing are made private; those that stand above are the user's and stay as they are.
    for (qsizetype slash = path.indexOf('/', 1); slash != -1; slash = path.indexOf('/', slash + 1)) {
        if (::mkdir(path.left(slash).constData(), 0700) != 0 && errno != EEXIST)
            return false;
    }
    if (::mkdir(path.constData(), 0700) != 0 && errno != EEXIST)
        return false;
    // The last one is ours even when it stood already: an older version made it open to all.
    const int fd = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return false;
    struct stat st {};
    bool ok = ::fstat(fd, &st) == 0;
    if (ok && st.st_uid == ::geteuid() && (st.st_mode & 077) != 0)
        ok = ::fchmod(fd, st.st_mode & 0700) == 0;
    ::close(fd);
    return ok;
}

bool prepare(const QString& folder, const QString& bundled) {
    if (!makePrivate(folder) || !makePrivate(folder + QStringLiteral("help")))
        return false;
    for (const char* name : {"ding.wav", "didi.snd", "air.mid", "help/tolmhelp.html"}) {
        const QString target = folder + QLatin1String(name);
        const QString source = bundled + QLatin1Char('/') + QLatin1String(name);
        // A failed copy shows later as a missing sound or help file.
        if (!QFileInfo::exists(target) && QFileInfo::exists(source) && QFile::copy(source, target))
            QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    return true;
}

} // namespace data_folder
