#include "platform/single_instance.h"

#include "platform/runtime_folder.h"

#include <QFileInfo>

SingleInstance::SingleInstance(const QString& lockPath) {
    // Without a folder of our own there is no lock to trust: the program starts rather than never.
    if (lockPath.isEmpty() || !runtime_folder::makePrivate(QFileInfo(lockPath).absolutePath()))
        return;
    m_lock = std::make_unique<QLockFile>(lockPath);
    // A lock is never stale while its process lives; tryLock takes over locks of dead processes.
    m_lock->setStaleLockTime(0);
    m_anotherRunning = !m_lock->tryLock(0) && m_lock->error() == QLockFile::LockFailedError;
}

QString SingleInstance::defaultLockPath() {
    const QString folder = runtime_folder::path();
    return folder.isEmpty() ? QString() : folder + QStringLiteral("bellwick.lock");
}
