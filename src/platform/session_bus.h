#pragma once

#include <QProcessEnvironment>

// The user's D-Bus session bus, looked for without touching D-Bus: where none runs, the library would start one
// of its own on the first touch (the tray's StatusNotifier check, Qt's accessibility bridge), which outlives us.
namespace session_bus {

// Whether a bus is there to be reached: an address that names one, or the user's bus socket in the runtime
// folder. An address that asks for a bus to be started counts as none.
bool present(const QProcessEnvironment& env);

// Before anything touches D-Bus: where there is no bus, every later touch fails at once instead of starting one.
// Programs we start inherit that choice.
void switchOffWhenAbsent();

} // namespace session_bus
