#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

// Which display system the program runs on. Wayland lets no window place itself, stay on top or take a
// shape, so where an X11 display is there too (XWayland) the program runs on that instead.
namespace display_choice {

// The platform to ask Qt for, given the environment and the arguments (without the program's name); empty
// leaves the choice to Qt. A platform the user chose, by QT_QPA_PLATFORM or -platform, is never overruled.
QString platformToAsk(const QProcessEnvironment& environment, const QStringList& arguments);

// Whether windows on this Qt platform can place themselves, stay on top and be cut to an outline.
bool windowsPlaceThemselves(const QString& platformName);

// One line for standard error on a platform where they cannot; empty where they can.
QString limitsNotice(const QString& platformName);

} // namespace display_choice
