#include "platform/ui/tray_host.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QGuiApplication>

#include <cstdlib>

#include <xcb/xcb.h>

namespace tray_host {

namespace {
const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
// The probe runs on the tick while no tray is there: a watcher that hangs must not hold the clock.
constexpr int callTimeoutMs = 500;
} // namespace

bool notifierHostPresent() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface())
        return false;
    const QDBusReply<bool> registered = bus.interface()->isServiceRegistered(watcherService);
    if (!registered.isValid() || !registered.value())
        return false;
    QDBusMessage get =
        QDBusMessage::createMethodCall(watcherService, QStringLiteral("/StatusNotifierWatcher"),
                                       QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    const QDBusMessage reply = bus.call(get, QDBus::Block, callTimeoutMs);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return false;
    return reply.arguments().constFirst().value<QDBusVariant>().variant().toBool();
}

bool embedTrayPresent() {
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return false;
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return false;
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    if (!xcb_parse_display(nullptr, &host, &display, &screen))
        screen = 0;
    std::free(host);
    const QByteArray name = "_NET_SYSTEM_TRAY_S" + QByteArray::number(screen);
    xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, static_cast<uint16_t>(name.size()), name.constData()), nullptr);
    if (!atom)
        return false;
    const xcb_atom_t selection = atom->atom;
    std::free(atom);
    // Only-if-exists: no atom means no tray ever claimed it.
    if (selection == XCB_ATOM_NONE)
        return false;
    xcb_get_selection_owner_reply_t* owner =
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr);
    if (!owner)
        return false;
    const bool owned = owner->owner != XCB_WINDOW_NONE;
    std::free(owner);
    return owned;
}

bool present() {
    return embedTrayPresent() || notifierHostPresent();
}

} // namespace tray_host
