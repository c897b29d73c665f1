#include "engine/command_client.h"

#include "message/message_text.h"
#include "platform/command_channel.h"
#include "platform/detached_start.h"
#include "platform/record_file.h"
#include "platform/single_instance.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLockFile>
#include <QThread>

namespace command_client {

namespace {

// A request waits this long for its answer: the first touch of the Alarm Set window reads the whole schedule.
constexpr int kAnswerMs = 60000;
constexpr int kConnectMs = 1000;
constexpr int kRetryMs = 100;

command_line::Answer failed(const QString& what) {
    return {1, {}, QStringLiteral("bellwick: %1\n").arg(what)};
}

// Whether a live copy holds the lock (it may still be on its way to listening).
bool copyRuns(const QString& lockPath) {
    QLockFile lock(lockPath);
    lock.setStaleLockTime(0);
    if (lock.tryLock(0)) {
        lock.unlock();
        return false;
    }
    return lock.error() == QLockFile::LockFailedError;
}

} // namespace

QString wakeLine(const command_protocol::Event& next, const QString& wakeAt) {
    // Starts unlike an event line, so a script reading the events passes it by.
    if (next.wake == QLatin1String("armed"))
        return QStringLiteral("Wake-up: the computer wakes at %1 for the alarm at %2 %3, also from a suspend\n")
            .arg(wakeAt, next.date, next.time);
    if (next.wake.startsWith(QLatin1String("unavailable: ")))
        return QStringLiteral("Wake-up: the computer will not wake from a suspend for the next alarm (%1)\n")
            .arg(next.wake.mid(13));
    if (next.wake.isEmpty())
        return {};
    return QStringLiteral("Wake-up: none is armed for the next alarm\n");
}

Channel userChannel(const QString& programPath) {
    Channel c;
    c.socketPath = command_channel::socketPath();
    c.lockPath = SingleInstance::defaultLockPath();
    if (!c.lockPath.isEmpty())
        c.startLockPath = QFileInfo(c.lockPath).absolutePath() + QStringLiteral("/bellwick-start.lock");
    c.programPath = programPath;
    return c;
}

std::optional<command_line::Answer> refusedHere(const command_protocol::Request& request) {
    if (request.command != QLatin1String("add"))
        return std::nullopt;
    const QString why = message_text::refusal(message_text::typed(message_text::shown(request.message)));
    return why.isEmpty() ? std::nullopt : std::optional(failed(why));
}

command_line::Answer run(const command_protocol::Request& given, const Channel& channel) {
    command_protocol::Request request = given;
    if (request.command == QLatin1String("import")) {
        // The file is read here, where its name means what the user meant.
        QByteArray bytes;
        FileError error;
        if (QFileInfo(request.file).size() > 4 * 1024 * 1024)
            return failed(QStringLiteral("%1: larger than 4 MB, no calendar of alarms").arg(request.file));
        if (!record_file::readBytes(request.file, bytes, error))
            return failed(QStringLiteral("%1: %2").arg(request.file, error.description));
        request.ics = QString::fromUtf8(bytes);
    }
    if (channel.socketPath.isEmpty())
        return failed(QStringLiteral("no private runtime folder for the command channel"));
    const QByteArray line = command_protocol::toLine(command_protocol::toJson(request));
    command_channel::Exchange reply = command_channel::exchange(channel.socketPath, line, kConnectMs, kAnswerMs);
    if (!reply.connected) {
        // One command line at a time finds out whether a copy runs and starts one; the others then find it.
        QLockFile startLock(channel.startLockPath);
        startLock.setStaleLockTime(0);
        if (!startLock.tryLock(channel.startWaitMs + 5000))
            return failed(QStringLiteral("another command is starting the program and does not finish"));
        reply = command_channel::exchange(channel.socketPath, line, kConnectMs, kAnswerMs);
        if (!reply.connected && !copyRuns(channel.lockPath) && !detached_start::start(channel.programPath))
            return failed(QStringLiteral("cannot start %1").arg(channel.programPath));
        const QDeadlineTimer deadline(channel.startWaitMs);
        while (!reply.connected && !deadline.hasExpired()) {
            QThread::msleep(kRetryMs);
            reply = command_channel::exchange(channel.socketPath, line, kConnectMs, kAnswerMs);
        }
        if (!reply.connected)
            return failed(QStringLiteral("the running program does not answer on %1").arg(channel.socketPath));
    }
    return answerFor(request, reply.answer);
}

command_line::Answer answerFor(const command_protocol::Request& request, const QByteArray& answerLine) {
    const QJsonObject answer = command_protocol::fromLine(answerLine);
    if (answer.isEmpty())
        return failed(QStringLiteral("no answer from the running program"));
    if (!answer.value("ok").toBool())
        return failed(answer.value("error").toString().replace(QLatin1Char('\n'), QStringLiteral("\nbellwick: ")));
    if (request.command == QLatin1String("export")) {
        const QByteArray ics = answer.value("ics").toString().toUtf8();
        if (request.file.isEmpty())
            return {0, QString::fromUtf8(ics), {}};
        FileError error;
        if (!record_file::rewriteBytes(QFileInfo(request.file).absoluteFilePath(), ics, error))
            return failed(QStringLiteral("%1: %2").arg(request.file, error.description));
        return {0, {}, {}};
    }
    if (request.command == QLatin1String("import")) {
        QString out = QStringLiteral("imported %1\n").arg(answer.value("imported").toInt());
        for (const QJsonValue& skipped : answer.value("skipped").toArray())
            out += QStringLiteral("skipped %1\n").arg(skipped.toString());
        return {0, out, {}};
    }
    if (request.command == QLatin1String("add"))
        return {0,
                command_protocol::eventLine(command_protocol::eventFromJson(answer.value("event").toObject())) +
                    QLatin1Char('\n'),
                answer.value("queued").toBool() ? QStringLiteral("bellwick: queued until the box is answered\n")
                                                : QString()};
    const QJsonArray events = answer.value("events").toArray();
    if (request.json)
        return {0, QString::fromUtf8(QJsonDocument(events).toJson(QJsonDocument::Indented)), {}};
    QString out;
    for (const QJsonValue& event : events)
        out += command_protocol::eventLine(command_protocol::eventFromJson(event.toObject())) + QLatin1Char('\n');
    if (!events.isEmpty())
        out += wakeLine(command_protocol::eventFromJson(events.first().toObject()), answer.value("wakeAt").toString());
    return {0, out, {}};
}

} // namespace command_client
