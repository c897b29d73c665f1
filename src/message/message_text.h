#pragma once

#include <QString>
#include <QStringView>

// The rules of the message box: what a key puts in, how long a message may get, how its line breaks are
// kept, and how far its text size goes.
namespace message_text {

// The most characters the box takes; a line break counts as two, carriage return and line feed.
inline constexpr int kMaxLength = 626;

// The character a typed key puts into the box: a double quote becomes an apostrophe, so no message can
// break the quoted records of the schedule.
QChar typed(QChar key);
QString typed(QString keys);

// A message is kept with CR LF line breaks; the box shows them as plain line feeds.
QString stored(const QString& shown);
QString shown(const QString& stored);

// The length of the box's text as the limit counts it: the bytes the file holds, so a character is one
// whatever its UTF-16 length, and a line break two.
int length(QStringView shown);
// The warning for text our files cannot hold, naming the characters; empty when every one can be stored.
QString unheldWarning(QStringView text);
// Why a message cannot be stored as given (too long, or characters the files cannot hold); empty when it can.
QString refusal(QStringView shown);
// The part of an insertion that fits: the box holds `boxText`, of which `replaced` is about to be
// replaced by `inserted`. Quotes are turned as typing turns them.
QString fitting(QStringView boxText, QStringView replaced, const QString& inserted);

// One step of the "+" and "-" labels; false (and the size unchanged) when the step is refused with a beep.
bool larger(double& pointSize);
bool smaller(double& pointSize);

} // namespace message_text
