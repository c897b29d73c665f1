#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

// Tells whether another copy of the program runs for this user: a lock file in this user's private runtime
// folder. A lock left by a dead process is taken over.
class SingleInstance {
public:
    explicit SingleInstance(const QString& lockPath = defaultLockPath());
    bool isAnotherRunning() const { return m_anotherRunning; }

    static QString defaultLockPath();

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_anotherRunning = false;
};
