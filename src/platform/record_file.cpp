#include "platform/record_file.h"

#include "platform/cp1252.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

namespace record_file {

QByteArray encodeRecord(const QString& text) {
    QByteArray out;
    appendRecord(out, {text});
    return out;
}

void appendRecord(QByteArray& out, std::initializer_list<QStringView> parts) {
    out.append('"');
    for (const QStringView part : parts)
        appendCp1252(out, part);
    out.append("\"\r\n", 3);
}

FileError errorFromErrno(int err) {
    switch (err) {
    case ENOENT:
        return {76, QStringLiteral("Path not found")};
    case EACCES:
    case EPERM:
    case EROFS:
        return {70, QStringLiteral("Permission denied")};
    case ENOSPC:
    case EDQUOT:
        return {61, QStringLiteral("Disk full")};
    case EIO:
        return {57, QStringLiteral("Device I/O error")};
    default:
        return {75, QStringLiteral("Path/File access error")};
    }
}

namespace {
QByteArray encodeAll(const QStringList& records) {
    QByteArray data;
    qsizetype size = 0;
    for (const QString& r : records)
        size += r.size() + 4;
    data.reserve(size);
    for (const QString& r : records)
        appendRecord(data, {r});
    return data;
}
} // namespace

bool readText(const QString& path, QString& text, FileError& error) {
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        error = errorFromErrno(errno);
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        error = errorFromErrno(errno ? errno : EIO);
        return false;
    }
    text = fromCp1252(bytes);
    return true;
}

bool appendRecords(const QString& path, const QStringList& records, FileError& error) {
    // Appending in place leaves a partial record when the disk fills; the file is written anew instead.
    QByteArray data;
    if (QFileInfo::exists(path)) {
        QFile file(path);
        errno = 0;
        if (!file.open(QIODevice::ReadOnly)) {
            error = errorFromErrno(errno);
            return false;
        }
        data = file.readAll();
        if (file.error() != QFileDevice::NoError) {
            error = errorFromErrno(errno ? errno : EIO);
            return false;
        }
    }
    data.append(encodeAll(records));
    return rewriteBytes(path, data, error);
}

bool rewriteRecords(const QString& path, const QStringList& records, FileError& error) {
    return rewriteBytes(path, encodeAll(records), error);
}

bool rewriteBytes(const QString& path, const QByteArray& data, FileError& error) {
    QSaveFile file(path);
    errno = 0;
    // Unbuffered, so a short write shows here: a write held in Qt's buffer fails only at commit, which does
    // not always tell, and would put a cut file in place of the whole one.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        error = errorFromErrno(errno);
        return false;
    }
    errno = 0;
    if (file.write(data) != data.size() || !file.flush()) {
        error = errorFromErrno(errno ? errno : EIO);
        file.cancelWriting();
        return false;
    }
    errno = 0;
    if (!file.commit()) {
        error = errorFromErrno(errno ? errno : EIO);
        return false;
    }
    return true;
}

} // namespace record_file
