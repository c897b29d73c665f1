#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <initializer_list>

// An error of a file operation, in the numbers and words the user sees.
struct FileError {
    int number = 0;
    QString description;
    bool isSet() const { return number != 0; }
};

// Our quoted record files: each record is a double quote, the text, a double quote, CR LF, in Windows-1252.
namespace record_file {

QByteArray encodeRecord(const QString& text);
// Appends one record made of these parts, joined with nothing between them.
void appendRecord(QByteArray& out, std::initializer_list<QStringView> parts);

// Opens a regular file for reading, unbuffered. Anything else (a folder, a named pipe, a device) is refused
// without being read, so a pipe planted under a file's name cannot hold the program up.
bool openRegular(const QString& path, QFile& file, FileError& error);
// Whole contents as text; false with error set when the file cannot be read.
bool readText(const QString& path, QString& text, FileError& error);
// The bytes of a regular file, opened as openRegular does.
bool readBytes(const QString& path, QByteArray& bytes, FileError& error);
// Appends records, creating the file when missing. The file is written anew through a temporary file, so a
// failure (a full disk, a kill) leaves the old file whole.
bool appendRecords(const QString& path, const QStringList& records, FileError& error);
// Replaces the file with these records through a temporary file and a rename, so a crash leaves
// the old or the new file whole.
bool rewriteRecords(const QString& path, const QStringList& records, FileError& error);
bool rewriteBytes(const QString& path, const QByteArray& data, FileError& error);
// Puts a new regular file of these bytes (mode 0600) under the name through a temporary file and a rename.
// Unlike rewriteBytes, a link under the name is replaced, never followed, so a planted link cannot turn the
// write onto another file.
bool replaceBytes(const QString& path, const QByteArray& data, FileError& error);

// The error of the last failed system call, as the user reads it.
FileError errorFromErrno(int err);

} // namespace record_file
