#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

// An alarm event lives only as text. These are its forms and the conversions between its play words.
namespace alarm_event {

// Length of the date, play word and time at the end of a schedule line.
inline constexpr int kTailLength = 22;
// Length of an event-list row without its message.
inline constexpr int kRowFixedLength = 38;

struct PlayForms {
    QString shortWord; // "once", "twic", "thri", "repe"
    QChar mark;        // '-', '=', '#', '~'
};

// The play words, in the order the play-count boxes list them.
const QStringList& playWords();
// "once" / "twice" / "thrice" / "repeat" to the 4-letter form and list mark; anything else counts as once.
PlayForms fromWholeWord(const QString& word);
// The 4-letter form to the whole word and mark; false when the form is none of the four.
bool fromShortWord(QStringView shortWord, QString& word, QChar& mark);
// The list mark to the 4-letter form; any other mark, 'x' included, gives "once".
QString shortWordFromMark(QChar mark);
// The first two letters of a today row to the whole word.
QString wholeWordFromTodayRow(QStringView row);
// The first five characters of a today row, trimmed, to the mark of the message view.
QChar viewMarkFromTodayRow(QStringView row);

// The last 8 characters: the time of a today row, a message row or a schedule line.
inline QStringView timeOf(QStringView row) {
    return row.right(8);
}

// A message as the schedule can hold it: a double quote would end its record there and lose the event, so
// however one came in (a message row of a data file, say) it is kept as an apostrophe.
QString scheduleMessage(const QString& message);
// Schedule line: message, date, 4-letter word, time.
QString scheduleLine(const QString& message, const QString& date, const QString& shortWord, const QString& time);
// Today row: whole word, space, time.
inline QString todayRow(const QString& word, const QString& time) {
    return word + QLatin1Char(' ') + time;
}
// Message row: message, " at ", time.
inline QString messageRow(const QString& message, const QString& time) {
    return message + QLatin1String(" at ") + time;
}
// The message of a message row: all but the last 12 characters.
inline QString messageOfMessageRow(const QString& row) {
    return row.left(qMax<qsizetype>(0, row.size() - 12));
}

// Event-list row: 6 spaces, mark, 4 spaces, date-time (19), 8 spaces, message as the schedule holds it.
QString eventListRow(const QString& mark, const QString& dateTime, const QString& message);
// The same for a record just read, its fields still the file's Windows-1252 bytes.
QString eventListRow(QChar mark, QLatin1String date, QLatin1String time, QLatin1String message);
// Appends a message as the schedule holds it.
void appendScheduleMessage(QString& out, QStringView message);

struct CrackedRow {
    QString mark;    // 1 character
    QString date;    // 10 characters
    QString time;    // 8 characters
    QString message; // any length
};
// Splits an event-list row; short rows give fields padded with spaces.
CrackedRow crackRow(const QString& row);
// Date and time of an event-list row, positions 12-21 and 23-30.
inline QStringView rowDate(QStringView row) {
    return row.mid(11, 10);
}
inline QStringView rowTime(QStringView row) {
    return row.mid(22, 8);
}
// Date and time as one sortable key (positions 12-30).
inline QStringView rowDateTime(QStringView row) {
    return row.mid(11, 19);
}

// Whether the time (last 8 characters of text) is earlier than or equal to now, hour, minute, second.
bool timeWasPassed(QStringView text, QStringView now);

} // namespace alarm_event
