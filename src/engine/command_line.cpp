#include "engine/command_line.h"

#include "engine/command_protocol.h"
#include "engine/show_request.h"

#include <QStringDecoder>

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
        "       bellwick add --time HH:MM:SS [--date YYYY/MM/DD] [--plays WORD] [--message TEXT]\n"
        "       bellwick add --in DELAY [--plays WORD] [--message TEXT]\n"
        "       bellwick add --time HH:MM:SS --every RULE [--date YYYY/MM/DD] [--until YYYY/MM/DD] [--count N]\n"
        "                    [--plays WORD] [--message TEXT]\n"
        "       bellwick list [--json]\n"
        "       bellwick export [--to FILE]\n"
        "       bellwick import FILE.ics\n"
        "       bellwick remove [--id ID] [--date YYYY/MM/DD] [--time HH:MM:SS] [--plays WORD] [--message TEXT]\n"
        "       bellwick --show alarm-set|settings|clock\n"
        "A resident alarm clock: it starts hidden with an icon in the notification area and rings your alarms\n"
        "at their due second. Left-click the icon to stop a ringing alarm, right-click it for the menu.\n"
        "\n"
        "Options:\n"
        "  -h, --help     print this help and exit\n"
        "  -v, --version  print the version and exit\n"
        "  --show WINDOW  open the running program's alarm-set, settings or clock window (the program is\n"
        "                 started first when none runs), say from a desktop shortcut\n"
        "\n"
        "Qt's own options (-platform, -display, -style, ...) are passed on to Qt.\n"
        "\n"
        "Sub-commands, handed to the running program (started first when none runs):\n"
        "  add            set an alarm, checked as the Alarm Set window's Add checks it; today's is armed,\n"
        "                 a later day's goes to the schedule. Prints the event as 'list' does; a refusal\n"
        "                 goes to standard error with exit status 1\n"
        "    --time       the time of day, 24-hour (seconds may be left out)\n"
        "    --date       the day, today or later; today when left out\n"
        "    --in         a delay from now instead: 90s, 20m or 2h\n"
        "    --plays      once (the default), twice, thrice or repeat (until stopped)\n"
        "    --message    the text of the message window, at most 626 characters, each one that\n"
        "                 Windows-1252 holds (the files' code page)\n"
        "    --every      come back every day, weekdays, weekends, week, month, year, or on days as mon,wed,fri\n"
        "                 (kept in recurring.ics, from --date or today on)\n"
        "    --until      the last day of a recurring alarm\n"
        "    --count      how many times a recurring alarm rings in all\n"
        "  list           the coming alarms in time order, one a line: YYYY/MM/DD HH:MM:SS PLAYS MESSAGE\n"
        "                 (in MESSAGE a line break is written \\n, a carriage return \\r, a backslash\n"
        "                 \\\\ and any other control character \\u00hh, as \\u001b for escape), then a line\n"
        "                 'Wake-up: ...' on whether the computer wakes from a suspend for the next alarm\n"
        "    --json       a JSON array of {date, time, plays, message, id, wake} instead; a recurring alarm\n"
        "                 also has every and next, and shows as its next occurrence; wake is 'armed',\n"
        "                 'later' or 'unavailable: REASON'\n"
        "  remove         takes away the one alarm that the options choose, as 'list --json' shows it; when\n"
        "                 several match, lists them and exits with status 1\n"
        "  export         every alarm as iCalendar (today's, the schedule's, the recurring ones), to standard\n"
        "                 output or --to FILE\n"
        "  import         arms or stores the alarm of each event with a display or audio alarm, and of each\n"
        "                 to-do with a due time, in local time; prints how many and what it skipped and why\n"
        "The computer wakes from a suspend 60 seconds before an alarm: set BELLWICK_WAKE_ADVANCE\n"
        "to another number of seconds, or to 'off'.\n"
        "Your alarms and settings live in ${XDG_DATA_HOME:-~/.local/share}/bellwick/.\n");
}

std::optional<Answer> notUtf8(const QList<QByteArray>& arguments) {
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = decoder(arguments.at(i));
        if (decoder.hasError())
            return Answer{
                1, {}, QStringLiteral("bellwick: argument %1 is not valid UTF-8: '%2'\n").arg(i + 1).arg(text)};
    }
    return std::nullopt;
}

std::optional<Answer> answer(const QStringList& arguments, const QString& version) {
    if (show_request::isShow(arguments)) {
        const show_request::Parsed parsed = show_request::parse(arguments);
        if (parsed.help)
            return Answer{0, helpText(), {}};
        if (!parsed.refusal.isEmpty())
            return refuse(parsed.refusal);
        return std::nullopt;
    }
    if (command_protocol::isSubCommand(arguments)) {
        const command_protocol::Parsed parsed = command_protocol::parse(arguments);
        if (parsed.help)
            return Answer{0, helpText(), {}};
        if (!parsed.refusal.isEmpty())
            return refuse(parsed.refusal);
        return std::nullopt;
    }
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
