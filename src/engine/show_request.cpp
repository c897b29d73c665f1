#include "engine/show_request.h"

namespace show_request {

namespace {

const QString kCommand = QStringLiteral("show");
const QStringList kWindows{QStringLiteral("alarm-set"), QStringLiteral("settings"), QStringLiteral("clock")};

Parsed refused(const QString& what) {
    Parsed p;
    p.refusal = what;
    return p;
}

} // namespace

bool isShow(const QStringList& arguments) {
    return !arguments.isEmpty() &&
           (arguments.first() == QLatin1String("--show") || arguments.first().startsWith(QLatin1String("--show=")));
}

Parsed parse(const QStringList& arguments) {
    QStringList rest = arguments.mid(1);
    QString window;
    if (arguments.first() == QLatin1String("--show")) {
        if (rest.isEmpty())
            return refused(QStringLiteral("--show needs a window: alarm-set, settings or clock"));
        window = rest.takeFirst();
    } else {
        window = arguments.first().mid(7);
    }
    if (window == QLatin1String("-h") || window == QLatin1String("--help") || rest.contains(QLatin1String("-h")) ||
        rest.contains(QLatin1String("--help"))) {
        Parsed p;
        p.help = true;
        return p;
    }
    if (!kWindows.contains(window))
        return refused(QStringLiteral("--show: '%1' is not alarm-set, settings or clock").arg(window));
    if (!rest.isEmpty())
        return refused(QStringLiteral("--show: unexpected argument '%1'").arg(rest.first()));
    Parsed p;
    p.window = window;
    return p;
}

command_protocol::Request request(const QString& window) {
    command_protocol::Request r;
    r.command = kCommand;
    r.window = window;
    return r;
}

std::optional<QByteArray> serve(const QByteArray& requestLine, const std::function<QString(const QString&)>& show) {
    const QJsonObject asked = command_protocol::fromLine(requestLine);
    if (asked.value("command").toString() != kCommand)
        return std::nullopt;
    const QString window = asked.value("window").toString();
    const QString reason = kWindows.contains(window) ? show(window) : QStringLiteral("no window '%1'").arg(window);
    if (!reason.isEmpty())
        return command_protocol::toLine({{"ok", false}, {"error", reason}});
    return command_protocol::toLine({{"ok", true}});
}

} // namespace show_request
