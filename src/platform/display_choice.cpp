#include "platform/display_choice.h"

namespace display_choice {

namespace {

bool choosesPlatform(const QString& argument) {
    // Qt takes its options with one dash or two.
    const QString name = argument.startsWith(QLatin1String("--")) ? argument.mid(1) : argument;
    return name == QLatin1String("-platform") || name.startsWith(QLatin1String("-platform="));
}

} // namespace

QString platformToAsk(const QProcessEnvironment& environment, const QStringList& arguments) {
    if (!environment.value(QStringLiteral("QT_QPA_PLATFORM")).isEmpty())
        return {};
    for (const QString& argument : arguments)
        if (choosesPlatform(argument))
            return {};
    if (environment.value(QStringLiteral("DISPLAY")).isEmpty())
        return {};
    const bool wayland = !environment.value(QStringLiteral("WAYLAND_DISPLAY")).isEmpty() ||
                         environment.value(QStringLiteral("XDG_SESSION_TYPE")) == QLatin1String("wayland");
    // A DISPLAY left over from elsewhere may lead nowhere: Wayland is then still better than no start at all.
    return wayland ? QStringLiteral("xcb;wayland") : QString();
}

bool windowsPlaceThemselves(const QString& platformName) {
    return !platformName.startsWith(QLatin1String("wayland"));
}

QString limitsNotice(const QString& platformName) {
    if (windowsPlaceThemselves(platformName))
        return {};
    return QStringLiteral(
        "bellwick: on Wayland no window may place itself, stay on top or take a shape, so the desktop clock is a "
        "plain window that you move by dragging its face, without its pill outline, edge snapping, roll-up or "
        "remembered place; on an X11 display (XWayland: DISPLAY set, no QT_QPA_PLATFORM=wayland) it has them\n");
}

} // namespace display_choice
