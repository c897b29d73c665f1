#include "platform/session_bus.h"

#include <QFile>

#include <sys/stat.h>

namespace session_bus {

bool present(const QProcessEnvironment& env) {
    const QString address = env.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    if (!address.isEmpty() && !address.startsWith(QLatin1String("autolaunch:")))
        return true;
    const QString runtime = env.value(QStringLiteral("XDG_RUNTIME_DIR"));
    if (runtime.isEmpty())
        return false;
    struct stat st {};
    return ::stat(QFile::encodeName(runtime + QStringLiteral("/bus")).constData(), &st) == 0 && S_ISSOCK(st.st_mode);
}

void switchOffWhenAbsent() {
    // An address of a kind the library does not know: it refuses it and starts nothing.
    if (!present(QProcessEnvironment::systemEnvironment()))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

} // namespace session_bus
