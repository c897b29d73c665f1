#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// Our files are Windows-1252 on disk; inside the program text is QString.
// A character the code page cannot hold is written as "?": callers check with cp1252Fit first.
QByteArray toCp1252(const QString& text);
// Appends the encoded text to out.
void appendCp1252(QByteArray& out, QStringView text);
QString fromCp1252(const QByteArray& bytes);
// Appends the decoded bytes to out.
void appendFromCp1252(QString& out, QLatin1String bytes);
// Writes the decoded bytes from dst on, one character per byte, and returns the end of what it wrote.
QChar* decodeCp1252(QChar* dst, QLatin1String bytes);

// How a text would go into a file: the characters the code page cannot hold, each once in the order of its
// first appearance, and the bytes the file would take, one a character (an unheld one counts as one too).
struct Cp1252Fit {
    QList<char32_t> unheld;
    qsizetype bytes = 0;
    bool fits() const { return unheld.isEmpty(); }
};
Cp1252Fit cp1252Fit(QStringView text);
// The unheld characters for a message: each printable one as itself, any other as U+XXXX, spaced.
QString unheldNames(const QList<char32_t>& unheld);
