#include "settings/setting_record.h"

#include "platform/cp1252.h"

namespace {
QByteArray fixedText(const QString& text, int length) {
    QByteArray bytes = toCp1252(text).left(length);
    bytes.append(QByteArray(length - bytes.size(), ' '));
    return bytes;
}
QString trimmedText(const QByteArray& bytes) {
    // Only blanks are trimmed; zero bytes of a never-written field stay and fail any comparison.
    QString text = fromCp1252(bytes);
    qsizetype start = 0, end = text.size();
    while (start < end && text[start] == QLatin1Char(' '))
        ++start;
    while (end > start && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(start, end - start);
}
} // namespace

void SettingRecord::setKey(const QString& key) {
    keyBytes = fixedText(key, kKeyLength);
}
void SettingRecord::setValue(const QString& value) {
    valueBytes = fixedText(value, kValueLength);
}
QString SettingRecord::keyText() const {
    return trimmedText(keyBytes);
}
QString SettingRecord::valueText() const {
    return trimmedText(valueBytes);
}
