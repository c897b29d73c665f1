#pragma once

#include <QString>
#include <QStringList>

// Starts a program that outlives its caller as a well-made background program does: in a session of its own
// with no controlling terminal, working folder "/", standard streams on /dev/null and no other descriptor of
// the caller (a flock(1) lock or the write end of a pipe would otherwise live as long as it does).
namespace detached_start {

// False when the program could not be started (not found, not executable, no process).
bool start(const QString& program, const QStringList& arguments = {});

} // namespace detached_start
