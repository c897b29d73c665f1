#include "engine/alarm_event.h"

#include "platform/cp1252.h"

#include <algorithm>

namespace alarm_event {

namespace {
// A double quote would end a schedule record early: from `from` on, each one becomes an apostrophe.
void turnQuotes(QString& text, qsizetype from) {
    for (qsizetype i = from; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('"'))
            text[i] = QLatin1Char('\'');
    }
}
} // namespace

const QStringList& playWords() {
    static const QStringList words{QStringLiteral("once"), QStringLiteral("twice"), QStringLiteral("thrice"),
                                   QStringLiteral("repeat")};
    return words;
}

PlayForms fromWholeWord(const QString& word) {
    if (word == QLatin1String("twice"))
        return {QStringLiteral("twic"), QLatin1Char('=')};
    if (word == QLatin1String("thrice"))
        return {QStringLiteral("thri"), QLatin1Char('#')};
    if (word == QLatin1String("repeat"))
        return {QStringLiteral("repe"), QLatin1Char('~')};
    return {QStringLiteral("once"), QLatin1Char('-')};
}

bool fromShortWord(QStringView shortWord, QString& word, QChar& mark) {
    if (shortWord == QLatin1String("once")) {
        word = QStringLiteral("once");
        mark = QLatin1Char('-');
    } else if (shortWord == QLatin1String("twic")) {
        word = QStringLiteral("twice");
        mark = QLatin1Char('=');
    } else if (shortWord == QLatin1String("thri")) {
        word = QStringLiteral("thrice");
        mark = QLatin1Char('#');
    } else if (shortWord == QLatin1String("repe")) {
        word = QStringLiteral("repeat");
        mark = QLatin1Char('~');
    } else {
        return false;
    }
    return true;
}

QString shortWordFromMark(QChar mark) {
    switch (mark.unicode()) {
    case '=':
        return QStringLiteral("twic");
    case '#':
        return QStringLiteral("thri");
    case '~':
        return QStringLiteral("repe");
    default:
        return QStringLiteral("once");
    }
}

QString wholeWordFromTodayRow(QStringView row) {
    const QStringView key = row.left(2);
    if (key == QLatin1String("tw"))
        return QStringLiteral("twice");
    if (key == QLatin1String("th"))
        return QStringLiteral("thrice");
    if (key == QLatin1String("re"))
        return QStringLiteral("repeat");
    return QStringLiteral("once");
}

QChar viewMarkFromTodayRow(QStringView row) {
    const QStringView word = row.left(5).trimmed();
    if (word == QLatin1String("once"))
        return QLatin1Char('_');
    if (word == QLatin1String("twice"))
        return QLatin1Char('=');
    if (word == QLatin1String("thric"))
        return QLatin1Char('#');
    if (word == QLatin1String("repea"))
        return QLatin1Char('~');
    return QLatin1Char('?');
}

QString scheduleMessage(const QString& message) {
    if (!message.contains(QLatin1Char('"')))
        return message;
    return QString(message).replace(QLatin1Char('"'), QLatin1Char('\''));
}

QString scheduleLine(const QString& message, const QString& date, const QString& shortWord, const QString& time) {
    return scheduleMessage(message) + date + shortWord + time;
}

QString eventListRow(const QString& mark, const QString& dateTime, const QString& message) {
    QString row;
    row.reserve(kRowFixedLength + message.size());
    row += QLatin1String("      ");
    row += mark;
    row += QLatin1String("    ");
    row += dateTime;
    row += QLatin1String("        ");
    appendScheduleMessage(row, message);
    return row;
}

QString eventListRow(QChar mark, QLatin1String date, QLatin1String time, QLatin1String message) {
    // Written in place into a row of its final length: the schedule load makes one for every record.
    QString row(6 + 1 + 4 + date.size() + 1 + time.size() + 8 + message.size(), Qt::Uninitialized);
    QChar* out = row.data();
    out = std::fill_n(out, 6, QLatin1Char(' '));
    *out++ = mark;
    out = std::fill_n(out, 4, QLatin1Char(' '));
    out = decodeCp1252(out, date);
    *out++ = QLatin1Char('-');
    out = decodeCp1252(out, time);
    out = std::fill_n(out, 8, QLatin1Char(' '));
    QChar* const messageStart = out;
    out = decodeCp1252(out, message);
    std::replace(messageStart, out, QChar(u'"'), QChar(u'\''));
    return row;
}

void appendScheduleMessage(QString& out, QStringView message) {
    const qsizetype start = out.size();
    out += message;
    turnQuotes(out, start);
}

CrackedRow crackRow(const QString& row) {
    CrackedRow out;
    out.mark = row.mid(6, 1);
    out.date = row.mid(11, 10);
    out.time = row.mid(22, 8);
    if (row.size() > kRowFixedLength)
        out.message = row.right(row.size() - kRowFixedLength);
    return out;
}

bool timeWasPassed(QStringView text, QStringView now) {
    const QStringView t = text.right(8);
    const QStringView h = t.mid(0, 2), nh = now.mid(0, 2);
    if (h != nh)
        return h < nh;
    const QStringView m = t.mid(3, 2), nm = now.mid(3, 2);
    if (m != nm)
        return m < nm;
    return t.mid(6, 2) <= now.mid(6, 2);
}

} // namespace alarm_event
