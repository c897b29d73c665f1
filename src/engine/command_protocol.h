#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// The sub-commands "add" and "list": what the command line asks of the running program, and the one-line JSON
// forms in which the request and its answer travel over the command channel.
namespace command_protocol {

struct Request {
    QString command;      // "add" or "list"
    QString date;         // add: "yyyy/mm/dd"; empty for today
    QString time;         // add: "hh:mm:ss" or "hh:mm", 24-hour
    qint64 inSeconds = 0; // add --in: from the present second on; 0 when --time is given
    QString plays = QStringLiteral("once");
    QString message;
    bool json = false; // list --json
    // add --every: the alarm comes back by this rule, until this day or this many times (0: no end).
    QString every;
    QString until;
    int count = 0;
    // remove: the alarm's id, and which of date, time, plays, message and id were given to choose it.
    QString id;
    QStringList chosenBy;
    // export: the file to write; standard output when empty. The command line writes it, not the program.
    QString file;
    // import: the calendar text, read by the command line.
    QString ics;
    QString window; // show: "alarm-set", "settings" or "clock"
};

struct Parsed {
    std::optional<Request> request;
    bool help = false;
    QString refusal; // set when the arguments are refused
};

// Whether the first argument names a sub-command.
bool isSubCommand(const QStringList& arguments);
// The arguments of a sub-command, the first being its name. Only the shape of each value is checked here; its
// meaning is checked by the running program, by the rules of the Alarm Set window.
Parsed parse(const QStringList& arguments);

QJsonObject toJson(const Request& request);
Request requestFromJson(const QJsonObject& object);

// One event as the sub-commands show it.
struct Event {
    QString date;       // "yyyy/mm/dd"
    QString time;       // "hh:mm:ss"
    QString plays;      // "once", "twice", "thrice" or "repeat"
    QString message;    // line breaks as '\n'; may be empty
    QString id = {};    // stable while the alarm stays as it is
    QString every = {}; // a recurring alarm's rule ("weekdays", ...); empty for one that rings once
    QString next = {};  // a recurring alarm's next occurrence, "yyyy/mm/dd hh:mm:ss"
    QString wake = {};  // list: "armed", "later" or "unavailable: <reason>"; empty when not told
};

QJsonObject toJson(const Event& event);
Event eventFromJson(const QJsonObject& object);
// "yyyy/mm/dd hh:mm:ss plays message": the message follows one space, with '\' written "\\", a line break "\n",
// a lone carriage return "\r" and every other control character (C0, DEL, C1) "\u00hh", so that one event is
// one line and nothing in it can drive a terminal; nothing follows the play word when there is no message.
QString eventLine(const Event& event);

// A JSON object as one line of the channel, and back; an empty object for a line that is none.
QByteArray toLine(const QJsonObject& object);
QJsonObject fromLine(const QByteArray& line);

} // namespace command_protocol
