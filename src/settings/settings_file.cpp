#include "settings/settings_file.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cstring>

#include <cerrno>

namespace {
const FileError kBadFileNumber{52, QStringLiteral("Bad file name or number")};
const FileError kBadRecordNumber{63, QStringLiteral("Bad record number")};

qint64 offsetOf(int n) {
    return qint64(n - 1) * SettingRecord::kLength;
}

FileError lastSystemError() {
    return record_file::errorFromErrno(errno ? errno : EIO);
}
} // namespace

QString SettingsFile::path(const QString& appPath) {
    return appPath + QStringLiteral("tolm.ini");
}

bool SettingsFile::exists(const QString& appPath) {
    return QFileInfo(path(appPath)).isFile();
}

QByteArray SettingsFile::encode(const SettingRecord& rec) {
    QByteArray bytes(SettingRecord::kLength, '\0');
    char* p = bytes.data();
    const QByteArray key = rec.keyBytes.leftJustified(SettingRecord::kKeyLength, '\0', true);
    const QByteArray value = rec.valueBytes.leftJustified(SettingRecord::kValueLength, '\0', true);
    memcpy(p, key.constData(), SettingRecord::kKeyLength);
    qToLittleEndian<qint32>(rec.value1, p + 17);
    qToLittleEndian<qint32>(rec.value2, p + 21);
    memcpy(p + 25, value.constData(), SettingRecord::kValueLength);
    return bytes;
}

SettingRecord SettingsFile::decode(const QByteArray& bytes) {
    const QByteArray full = bytes.leftJustified(SettingRecord::kLength, '\0', true);
    const char* p = full.constData();
    SettingRecord rec;
    rec.keyBytes = full.left(SettingRecord::kKeyLength);
    rec.value1 = qFromLittleEndian<qint32>(p + 17);
    rec.value2 = qFromLittleEndian<qint32>(p + 21);
    rec.valueBytes = full.mid(25, SettingRecord::kValueLength);
    return rec;
}

bool SettingsFile::openForReading(const QString& appPath) {
    close();
    return record_file::openRegular(path(appPath), m_file, m_error);
}

bool SettingsFile::openForWriting(const QString& appPath) {
    close();
    m_writePath = path(appPath);
    m_writeBytes.clear();
    m_changed = false;
    // The records are changed in memory and the file written anew at close, so a full disk or a kill leaves
    // the old file whole.
    if (QFileInfo::exists(m_writePath) && !record_file::readBytes(m_writePath, m_writeBytes, m_error))
        return false;
    m_writing = true;
    return true;
}

void SettingsFile::close() {
    if (m_file.isOpen())
        m_file.close();
    if (!m_writing)
        return;
    m_writing = false;
    FileError error;
    if (m_changed && !record_file::rewriteBytes(m_writePath, m_writeBytes, error))
        m_error = error;
    m_writeBytes.clear();
}

bool SettingsFile::usable(int n) {
    if (!m_file.isOpen() && !m_writing) {
        m_error = kBadFileNumber;
        return false;
    }
    if (n < 1) {
        m_error = kBadRecordNumber;
        return false;
    }
    return true;
}

void SettingsFile::read(int n, SettingRecord& rec) {
    rec = SettingRecord();
    if (!usable(n))
        return;
    const qint64 offset = offsetOf(n);
    if (m_writing) {
        if (offset < m_writeBytes.size())
            rec = decode(m_writeBytes.mid(offset, SettingRecord::kLength));
        return;
    }
    if (offset >= m_file.size())
        return;
    errno = 0;
    if (!m_file.seek(offset)) {
        m_error = lastSystemError();
        return;
    }
    const QByteArray bytes = m_file.read(SettingRecord::kLength);
    if (m_file.error() != QFileDevice::NoError) {
        m_error = lastSystemError();
        m_file.unsetError();
        return;
    }
    rec = decode(bytes);
}

void SettingsFile::write(int n, const SettingRecord& rec) {
    if (!usable(n))
        return;
    if (!m_writing) {
        m_error = kBadFileNumber;
        return;
    }
    const qint64 offset = offsetOf(n);
    // A gap before the record is zero bytes.
    if (m_writeBytes.size() < offset + SettingRecord::kLength)
        m_writeBytes.resize(std::max<qint64>(m_writeBytes.size(), offset + SettingRecord::kLength), '\0');
    m_writeBytes.replace(offset, SettingRecord::kLength, encode(rec));
    m_changed = true;
}
