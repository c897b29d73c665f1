#pragma once

#include <QByteArray>
#include <QString>

// Our files are Windows-1252 on disk; inside the program text is QString.
// A character the code page cannot hold is written as "?".
QByteArray toCp1252(const QString& text);
// Appends the encoded text to out.
void appendCp1252(QByteArray& out, QStringView text);
QString fromCp1252(const QByteArray& bytes);
// Appends the decoded bytes to out.
void appendFromCp1252(QString& out, QLatin1String bytes);
// Writes the decoded bytes from dst on, one character per byte, and returns the end of what it wrote.
QChar* decodeCp1252(QChar* dst, QLatin1String bytes);
