#pragma once

#include <QByteArray>
#include <QString>

// Starting the program with the desktop session: an XDG autostart entry for this user.
namespace autostart {

// ${XDG_CONFIG_HOME:-$HOME/.config}/autostart/bwktolm.desktop
QString entryPath();

// The Exec value for one program path: quoted when it holds a reserved character, then escaped as a string.
QString execValue(const QString& programPath);
QByteArray desktopEntry(const QString& programPath);

// Writes the entry whole (temporary file and rename), creating the folder; false on any failure.
bool install(const QString& programPath);
// Removes the entry; true when it is gone, also when there was none.
bool remove();

} // namespace autostart
