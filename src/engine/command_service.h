#pragma once

#include "alarmset/add_entry.h"
#include "engine/command_protocol.h"

#include <QByteArray>
#include <QList>
#include <QTimer>

class Context;
class RoutedNotices;

// The running program's side of the sub-commands: an add goes through the Add of the Alarm Set window, with its
// warnings sent back instead of shown; a list reads today's armed events and the later ones of the event list.
namespace command_service {

// The adds that came while a system-modal box stood. They are answered at once and armed, in the order they
// came, when the box has gone and the work it interrupted has ended.
class WaitingAdds {
public:
    explicit WaitingAdds(Context& ctx);
    void push(const command_protocol::Request& request);
    // Arms them all unless a box still stands; true when none waits any more. Tried again by itself meanwhile.
    bool armWhenFree();

private:
    Context& m_ctx;
    QList<command_protocol::Request> m_adds;
    QTimer m_retry;
};

// Serves one request line of the command channel and gives the answer line; a list is answered at once, even
// while a system-modal box stands, and an add then waits in `waiting`.
QByteArray serve(Context& ctx, RoutedNotices& notices, const QByteArray& requestLine, WaitingAdds& waiting);
// The same, arming an add at once whatever stands: for a request that comes of the program's own work.
QByteArray serve(Context& ctx, RoutedNotices& notices, const QByteArray& requestLine);

// The entry controls for a 24-hour time "hh:mm:ss" or "hh:mm" of the command line, as the Alarm Set window
// would hold them: 12-hour texts and AM or PM. A field that is no number of one or two digits stays empty, so
// the Add refuses it; an hour past 23 stays as it is, and the Add refuses that too.
EntryControls entryControls(const QString& time, const QString& plays);

// The coming events: today's armed ones, then the later days' of the event list, in time order. Each of several
// alarms of one time takes the next message of that time, as they ring.
QList<command_protocol::Event> comingEvents(const Context& ctx);

} // namespace command_service
