#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// What the program was asked on its command line, before any window, lock or file is touched.
namespace command_line {

struct Answer {
    int exitCode = 0;
    QString out; // for standard output
    QString err; // for standard error
};

// Answers --help, --version and bad arguments; nothing when the resident program should start, or when a
// well-formed sub-command ("add", "list") is to go to it. Qt's own options (-platform, -display, -style, ...)
// are left for QApplication.
std::optional<Answer> answer(const QStringList& arguments, const QString& version);

// The first argument that is not UTF-8 refused with status 1: its text would reach the files changed.
std::optional<Answer> notUtf8(const QList<QByteArray>& arguments);

QString helpText();

} // namespace command_line
