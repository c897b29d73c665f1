#include "platform/single_instance.h"

#include <QDir>
#include <QStandardPaths>

SingleInstance::SingleInstance(const QString& lockPath) : m_lock(std::make_unique<QLockFile>(lockPath)) {
    QDir().mkpath(QFileInfo(lockPath).absolutePath());
    // A lock is never stale while its process lives; tryLock takes over locks of dead processes.
    m_lock->setStaleLockTime(0);
    m_owned = m_lock->tryLock(0);
}

QString SingleInstance::defaultLockPath() {
    QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (dir.isEmpty())
        dir = QDir::tempPath();
    return dir + QStringLiteral("/bellwick/bellwick.lock");
}
