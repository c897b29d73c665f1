#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

// One 55-byte record of the settings file: key (17 bytes), two little-endian 32-bit numbers, value (30 bytes).
// Key and value are kept as the raw bytes on disk, so a writer leaves untouched whatever it did not set.
struct SettingRecord {
    static constexpr int kKeyLength = 17;
    static constexpr int kValueLength = 30;
    static constexpr int kLength = kKeyLength + 4 + 4 + kValueLength;

    QByteArray keyBytes = QByteArray(kKeyLength, '\0');
    int32_t value1 = 0;
    int32_t value2 = 0;
    QByteArray valueBytes = QByteArray(kValueLength, '\0');

    // Fixed-length text fields: left-aligned, padded with spaces, cut to length.
    void setKey(const QString& key);
    void setValue(const QString& value);
    // The fields with the spaces trimmed off, as every reader compares them.
    QString keyText() const;
    QString valueText() const;
    bool keyIs(const QString& expected) const { return keyText() == expected; }
};
