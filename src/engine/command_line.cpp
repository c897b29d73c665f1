#include "engine/command_line.h"

#include <array>

namespace command_line {

namespace {

// Options QApplication takes itself; the first group is followed by a value unless given as -name=value.
constexpr std::array qtOptionsWithValue{"platform",        "platformpluginpath", "platformtheme", "plugin",
                                        "qwindowgeometry", "qwindowicon",        "qwindowtitle",  "session",
                                        "display",         "geometry",           "style",         "stylesheet",
                                        "qmljsdebugger"};
constexpr std::array qtFlags{"reverse", "widgetcount", "nograb", "dograb", "sync", "testability"};

template <typename Names> bool contains(const Names& names, const QString& name) {
    for (const char* known : names)
        if (name == QLatin1String(known))
            return true;
    return false;
}

Answer refuse(const QString& what) {
    return {2, {}, QStringLiteral("bellwick: %1\nTry 'bellwick --help' for more information.\n").arg(what)};
}

} // namespace

QString helpText() {
    return QStringLiteral(
        "Usage: bellwick [option]\n"
        "A resident alarm clock: it starts hidden with an icon in the notification area and rings your alarms\n"
        "at their due second. Left-click the icon to stop a ringing alarm, right-click it for the menu.\n"
        "\n"
        "Options:\n"
        "  -h, --help     print this help and exit\n"
        "  -v, --version  print the version and exit\n"
        "\n"
        "Qt's own options (-platform, -display, -style, ...) are passed on to Qt.\n"
        "Your alarms and settings live in ${XDG_DATA_HOME:-~/.local/share}/bellwick/.\n");
}

std::optional<Answer> answer(const QStringList& arguments, const QString& version) {
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("-h") || argument == QLatin1String("--help"))
            return Answer{0, helpText(), {}};
        if (argument == QLatin1String("-v") || argument == QLatin1String("--version"))
            return Answer{0, QStringLiteral("bellwick %1\n").arg(version), {}};
        if (!argument.startsWith(QLatin1Char('-')) || argument == QLatin1String("-"))
            return refuse(QStringLiteral("unexpected argument '%1'").arg(argument));
        // Qt accepts its options with one dash or two, and "-name=value".
        QString name = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
        const bool hasValue = name.contains(QLatin1Char('='));
        name = name.section(QLatin1Char('='), 0, 0);
        if (contains(qtOptionsWithValue, name)) {
            if (!hasValue && ++i >= arguments.size())
                return refuse(QStringLiteral("option '%1' needs a value").arg(argument));
            continue;
        }
        if (contains(qtFlags, name) && !hasValue)
            continue;
        return refuse(QStringLiteral("unknown option '%1'").arg(argument));
    }
    return std::nullopt;
}

} // namespace command_line
