#pragma once

// Whether a notification area is there to take an icon, found out without Qt's tray code: Qt settles once per
// process, at its first tray call, whether to use the D-Bus StatusNotifier tray, so a panel that comes a moment
// after the program would never get the icon if Qt were asked too early.
namespace tray_host {

// A StatusNotifier host registered on the session bus (KDE Plasma, AppIndicator desktops).
bool notifierHostPresent();
// An X11 system tray (XEmbed) owning its selection on the display's screen.
bool embedTrayPresent();
// Either of them; false where neither can be asked (no session bus, not X11).
bool present();

} // namespace tray_host
