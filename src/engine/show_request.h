#pragma once

#include "engine/command_protocol.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// "bellwick --show WINDOW": the running program opens one of its windows, so a desktop shortcut reaches it
// without the tray.
namespace show_request {

// Whether the arguments ask to show a window ("--show NAME" or "--show=NAME").
bool isShow(const QStringList& arguments);

struct Parsed {
    QString window; // "alarm-set", "settings" or "clock"
    bool help = false;
    QString refusal;
};
Parsed parse(const QStringList& arguments);

command_protocol::Request request(const QString& window);

// The running program's answer line to a show request, or nothing when the line asks something else. `show` opens
// the named window and gives an empty text, or the reason it cannot.
std::optional<QByteArray> serve(const QByteArray& requestLine, const std::function<QString(const QString&)>& show);

} // namespace show_request
