#include "platform/record_file.h"

#include "platform/cp1252.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

bool openRegular(const QString& path, QFile& file, FileError& error) {
    errno = 0;
    // Non-blocking, so the open of a pipe returns at once; the check then refuses it.
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        error = errorFromErrno(errno);
        return false;
    }
    struct stat st {};
    if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        error = errorFromErrno(EINVAL);
        return false;
    }
    if (!file.open(fd, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        error = errorFromErrno(EIO);
        return false;
    }
    return true;
}

bool readBytes(const QString& path, QByteArray& bytes, FileError& error) {
    QFile file;
    if (!openRegular(path, file, error))
        return false;
    errno = 0;
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        error = errorFromErrno(errno ? errno : EIO);
        return false;
    }
    return true;
}

bool readText(const QString& path, QString& text, FileError& error) {
    QByteArray bytes;
    if (!readBytes(path, bytes, error))
        return false;
    text = fromCp1252(bytes);
    return true;
}

bool appendRecords(const QString& path, const QStringList& records, FileError& error) {
    // Appending in place leaves a partial record when the disk fills; the file is written anew instead.
    QByteArray data;
    if (QFileInfo::exists(path) && !readBytes(path, data, error))
        return false;
    data.append(encodeAll(records));
    return rewriteBytes(path, data, error);
}

bool rewriteRecords(const QString& path, const QStringList& records, FileError& error) {
    return rewriteBytes(path, encodeAll(records), error);
}

bool rewriteBytes(const QString& path, const QByteArray& data, FileError& error) {
    QSaveFile file(path);
    // A file that stands keeps its permissions; a new one is the user's alone, like everything it holds.
    const bool fresh = !QFileInfo::exists(path);
    errno = 0;
    // Unbuffered, so a short write shows here: a write held in Qt's buffer fails only at commit, which does
    // not always tell, and would put a cut file in place of the whole one.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        (fresh && !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner))) {
        error = errorFromErrno(errno ? errno : EACCES);
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

bool replaceBytes(const QString& path, const QByteArray& data, FileError& error) {
    const QByteArray target = QFile::encodeName(path);
    QByteArray temporary = target + ".XXXXXX";
    // mkostemp creates with O_EXCL, so a link planted under the temporary name is not followed either.
    const int fd = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (fd < 0) {
        error = errorFromErrno(errno);
        return false;
    }
    const char* at = data.constData();
    qsizetype left = data.size();
    int failure = 0;
    while (left > 0 && failure == 0) {
        const ssize_t written = ::write(fd, at, size_t(left));
        if (written > 0) {
            at += written;
            left -= written;
        } else if (written < 0 && errno != EINTR) {
            failure = errno;
        } else if (written == 0) {
            failure = EIO;
        }
    }
    if (::close(fd) != 0 && failure == 0)
        failure = errno;
    if (failure == 0 && ::rename(temporary.constData(), target.constData()) != 0)
        failure = errno;
    if (failure != 0) {
        ::unlink(temporary.constData());
        error = errorFromErrno(failure);
        return false;
    }
    return true;
}

} // namespace record_file
