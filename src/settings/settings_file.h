#pragma once

#include "platform/record_file.h"
#include "settings/setting_record.h"

#include <QByteArray>
#include <QFile>
#include <QString>

// tolm.ini: a random-access file of 55-byte records, record n at byte (n - 1) * 55, no header.
// One open serves one operation; errors do not stop it, the last one is kept for whoever wants to report it.
class SettingsFile {
public:
    static QString path(const QString& appPath);
    static bool exists(const QString& appPath);

    static QByteArray encode(const SettingRecord& rec);
    // Bytes missing at the end (a record cut by the end of the file) read as zero bytes.
    static SettingRecord decode(const QByteArray& bytes);

    // Readers open read-only. Writers open for writing and change the records in memory; close writes the
    // whole file anew through a temporary file, so it is never left half written.
    bool openForReading(const QString& appPath);
    bool openForWriting(const QString& appPath);
    void close();

    // Empties rec, then reads record n into it; past the end of the file it stays empty.
    void read(int n, SettingRecord& rec);
    // Writing past the end extends the file, with zero bytes in the gap.
    void write(int n, const SettingRecord& rec);

    const FileError& error() const { return m_error; }

private:
    bool usable(int n);

    QFile m_file;
    FileError m_error;
    // Open for writing: the file's bytes as they will be written at close.
    bool m_writing = false;
    bool m_changed = false;
    QString m_writePath;
    QByteArray m_writeBytes;
};
