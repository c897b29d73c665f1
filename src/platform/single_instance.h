#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

// Tells whether another copy of the program runs for this user. A lock left by a dead process is taken over.
class SingleInstance {
public:
    explicit SingleInstance(const QString& lockPath = defaultLockPath());
    bool isAnotherRunning() const { return !m_owned; }

    static QString defaultLockPath();

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_owned = false;
};
