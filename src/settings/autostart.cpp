#include "settings/autostart.h"

#include "platform/record_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace autostart {

QString entryPath() {
    QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
    // A relative value is invalid and must be ignored.
    if (config.isEmpty() || QDir::isRelativePath(config))
        config = QDir::homePath() + QStringLiteral("/.config");
    return config + QStringLiteral("/autostart/bwktolm.desktop");
}

QString execValue(const QString& programPath) {
    static const QString reserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
    QString arg = programPath;
    const bool needsQuotes = std::any_of(arg.cbegin(), arg.cend(), [](QChar c) { return reserved.contains(c); });
    if (needsQuotes) {
        QString quoted = QStringLiteral("\"");
        for (QChar c : arg) {
            if (c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('$') || c == QLatin1Char('\\'))
                quoted += QLatin1Char('\\');
            quoted += c;
        }
        arg = quoted + QLatin1Char('"');
    }
    // '%' starts a field code; then the escapes every string value takes.
    arg.replace(QLatin1Char('%'), QStringLiteral("%%"));
    QString value;
    for (QChar c : arg) {
        if (c == QLatin1Char('\\'))
            value += QStringLiteral("\\\\");
        else if (c == QLatin1Char('\n'))
            value += QStringLiteral("\\n");
        else if (c == QLatin1Char('\t'))
            value += QStringLiteral("\\t");
        else if (c == QLatin1Char('\r'))
            value += QStringLiteral("\\r");
        else
            value += c;
    }
    return value;
}

QByteArray desktopEntry(const QString& programPath) {
    QString text = QStringLiteral("[Desktop Entry]\n"
                                  "Type=Application\n"
                                  "Name=Bellwick\n"
                                  "Exec=");
    text += execValue(programPath);
    text += QStringLiteral("\nX-GNOME-Autostart-enabled=true\n");
    return text.toUtf8();
}

bool install(const QString& programPath) {
    const QString path = entryPath();
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    FileError error;
    return record_file::rewriteBytes(path, desktopEntry(programPath), error);
}

bool remove() {
    QFile file(entryPath());
    return !file.exists() || file.remove();
}

} // namespace autostart
