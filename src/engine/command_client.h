#pragma once

#include "engine/command_line.h"
#include "engine/command_protocol.h"

#include <QString>

#include <optional>

// The command line's side of the sub-commands: hands the request to the running program, starting it first
// when none runs, and turns its answer into what is printed and the exit status.
namespace command_client {

struct Channel {
    QString socketPath;
    QString lockPath;        // the running program's lock
    QString startLockPath;   // held while one command line starts the program, so two do not both start it
    QString programPath;     // started detached when no copy runs
    int startWaitMs = 10000; // how long a started copy may take to listen
};

// The channel of this user, starting this program.
Channel userChannel(const QString& programPath);

// A message the running program would refuse, told before it is asked or started: a message of any length gets
// its reason, not an error of the channel, which takes lines of a bounded length.
std::optional<command_line::Answer> refusedHere(const command_protocol::Request& request);

command_line::Answer run(const command_protocol::Request& request, const Channel& channel);

// What the command line prints for an answer line of the running program.
command_line::Answer answerFor(const command_protocol::Request& request, const QByteArray& answerLine);

// The last line of a plain list: whether the computer wakes for the next alarm; empty when the program did not say.
QString wakeLine(const command_protocol::Event& next, const QString& wakeAt);

} // namespace command_client
