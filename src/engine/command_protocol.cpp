#include "engine/command_protocol.h"

#include "engine/alarm_event.h"
#include "engine/command_recurring.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace command_protocol {

namespace {

// Ten years: far enough for any reminder, and the date keeps four digits of year.
constexpr qint64 kMostSeconds = 10LL * 366 * 24 * 3600;

bool matches(const QString& text, const char* pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(pattern))).match(text).hasMatch();
}

// "20m", "90s", "2h": seconds, or 0 when the text is none of them.
qint64 durationSeconds(const QString& text) {
    if (!matches(text, "[0-9]{1,9}[smh]"))
        return 0;
    const qint64 count = text.chopped(1).toLongLong();
    const QChar unit = text.back();
    const qint64 seconds = count * (unit == QLatin1Char('h') ? 3600 : unit == QLatin1Char('m') ? 60 : 1);
    return seconds <= kMostSeconds ? seconds : 0;
}

Parsed refused(const QString& what) {
    Parsed p;
    p.refusal = what;
    return p;
}

} // namespace

bool isSubCommand(const QStringList& arguments) {
    return !arguments.isEmpty() &&
           (arguments.first() == QLatin1String("add") || arguments.first() == QLatin1String("list") ||
            arguments.first() == QLatin1String("remove") || arguments.first() == QLatin1String("export") ||
            arguments.first() == QLatin1String("import"));
}

Parsed parse(const QStringList& arguments) {
    Request r;
    r.command = arguments.value(0);
    if (r.command == QLatin1String("remove"))
        return command_recurring::parseRemove(arguments);
    if (r.command == QLatin1String("export") || r.command == QLatin1String("import"))
        return command_recurring::parseExport(arguments);
    const bool add = r.command == QLatin1String("add");
    const QStringList valued =
        add ? QStringList{"--date", "--time", "--in", "--plays", "--message", "--every", "--until", "--count"}
            : QStringList{};
    QStringList seen;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        QString name = arguments.at(i);
        if (name == QLatin1String("-h") || name == QLatin1String("--help")) {
            Parsed p;
            p.help = true;
            return p;
        }
        if (!add && name == QLatin1String("--json")) {
            r.json = true;
            continue;
        }
        QString value;
        const qsizetype equals = name.indexOf(QLatin1Char('='));
        const bool inline_ = name.startsWith(QLatin1String("--")) && equals > 0;
        if (inline_) {
            value = name.mid(equals + 1);
            name.truncate(equals);
        }
        if (!valued.contains(name)) {
            return refused(name.startsWith(QLatin1Char('-'))
                               ? QStringLiteral("%1: unknown option '%2'").arg(r.command, name)
                               : QStringLiteral("%1: unexpected argument '%2'").arg(r.command, name));
        }
        if (!inline_) {
            if (++i >= arguments.size())
                return refused(QStringLiteral("%1: option '%2' needs a value").arg(r.command, name));
            value = arguments.at(i);
        }
        if (seen.contains(name))
            return refused(QStringLiteral("%1: option '%2' given twice").arg(r.command, name));
        seen.append(name);
        if (name == QLatin1String("--date")) {
            if (!matches(value, "[0-9]{4}/[0-9]{2}/[0-9]{2}"))
                return refused(QStringLiteral("add: the date '%1' is not YYYY/MM/DD").arg(value));
            r.date = value;
        } else if (name == QLatin1String("--time")) {
            if (!matches(value, "[0-9]{1,2}:[0-9]{1,2}(:[0-9]{1,2})?"))
                return refused(QStringLiteral("add: the time '%1' is not HH:MM:SS").arg(value));
            r.time = value;
        } else if (name == QLatin1String("--in")) {
            r.inSeconds = durationSeconds(value);
            if (r.inSeconds == 0)
                return refused(QStringLiteral("add: the delay '%1' is not a number of seconds, minutes or hours, "
                                              "as 90s, 20m or 2h, up to ten years")
                                   .arg(value));
        } else if (name == QLatin1String("--plays")) {
            if (!alarm_event::playWords().contains(value))
                return refused(QStringLiteral("add: plays '%1' is not once, twice, thrice or repeat").arg(value));
            r.plays = value;
        } else if (name == QLatin1String("--message")) {
            r.message = value;
        } else {
            const QString refusal = command_recurring::parseAddOption(name, value, r);
            if (!refusal.isEmpty())
                return refused(refusal);
        }
    }
    if (add) {
        const bool in = seen.contains(QLatin1String("--in"));
        if (in && (seen.contains(QLatin1String("--date")) || seen.contains(QLatin1String("--time"))))
            return refused(QStringLiteral("add: --in goes without --date and --time"));
        if (!in && !seen.contains(QLatin1String("--time")))
            return refused(QStringLiteral("add: give --time (and --date), or --in"));
        if (r.every.isEmpty() && (seen.contains(QLatin1String("--until")) || seen.contains(QLatin1String("--count"))))
            return refused(QStringLiteral("add: --until and --count go with --every"));
        if (!r.every.isEmpty() && in)
            return refused(QStringLiteral("add: --every goes with --time, not --in"));
    }
    Parsed p;
    p.request = r;
    return p;
}

QJsonObject toJson(const Request& r) {
    QJsonObject o{{"command", r.command}};
    if (r.command == QLatin1String("add")) {
        if (r.inSeconds > 0) {
            o.insert("in", r.inSeconds);
        } else {
            o.insert("date", r.date);
            o.insert("time", r.time);
        }
        o.insert("plays", r.plays);
        o.insert("message", r.message);
        if (!r.every.isEmpty()) {
            o.insert("every", r.every);
            o.insert("until", r.until);
            o.insert("count", r.count);
        }
    }
    if (r.command == QLatin1String("import"))
        o.insert("ics", r.ics);
    if (r.command == QLatin1String("remove")) {
        o.insert("date", r.date);
        o.insert("time", r.time);
        o.insert("plays", r.plays);
        o.insert("message", r.message);
        o.insert("id", r.id);
        o.insert("chosenBy", QJsonArray::fromStringList(r.chosenBy));
    }
    if (r.command == QLatin1String("show"))
        o.insert("window", r.window);
    return o;
}

Request requestFromJson(const QJsonObject& o) {
    Request r;
    r.command = o.value("command").toString();
    r.date = o.value("date").toString();
    r.time = o.value("time").toString();
    r.inSeconds = o.value("in").toInteger();
    r.plays = o.value("plays").toString();
    r.message = o.value("message").toString();
    r.every = o.value("every").toString();
    r.until = o.value("until").toString();
    r.count = o.value("count").toInt();
    r.id = o.value("id").toString();
    r.ics = o.value("ics").toString();
    for (const QJsonValue& v : o.value("chosenBy").toArray())
        r.chosenBy.append(v.toString());
    return r;
}

QJsonObject toJson(const Event& e) {
    QJsonObject o{{"date", e.date}, {"time", e.time}, {"plays", e.plays}, {"message", e.message}, {"id", e.id}};
    if (!e.every.isEmpty()) {
        o.insert("every", e.every);
        o.insert("next", e.next);
    }
    if (!e.wake.isEmpty())
        o.insert("wake", e.wake);
    return o;
}

Event eventFromJson(const QJsonObject& o) {
    return {o.value("date").toString(),    o.value("time").toString(), o.value("plays").toString(),
            o.value("message").toString(), o.value("id").toString(),   o.value("every").toString(),
            o.value("next").toString(),    o.value("wake").toString()};
}

QString eventLine(const Event& e) {
    QString line = e.date + QLatin1Char(' ') + e.time + QLatin1Char(' ') + e.plays;
    if (!e.every.isEmpty())
        line += QStringLiteral(" (every %1)").arg(e.every);
    if (e.message.isEmpty())
        return line;
    line += QLatin1Char(' ');
    for (const QChar c : e.message) {
        if (c == QLatin1Char('\\'))
            line += QLatin1String("\\\\");
        else if (c == QLatin1Char('\n'))
            line += QLatin1String("\\n");
        else if (c == QLatin1Char('\r'))
            line += QLatin1String("\\r");
        else if (c.unicode() < 0x20 || (c.unicode() >= 0x7F && c.unicode() <= 0x9F))
            line += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0')); // no control reaches a terminal
        else
            line += c;
    }
    return line;
}

QByteArray toLine(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject fromLine(const QByteArray& line) {
    return QJsonDocument::fromJson(line.trimmed()).object();
}

} // namespace command_protocol
