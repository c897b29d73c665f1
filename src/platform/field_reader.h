#pragma once

#include <QByteArray>
#include <QString>

// Reads the fields of our quoted record files one at a time:
// leading blanks and tabs are skipped; a quoted field runs to the next quote, line breaks included,
// and the rest up to the next comma or line end is dropped; an unquoted field runs to the next
// comma or line end.
class FieldReader {
public:
    explicit FieldReader(QString text) : m_text(std::move(text)) {}

    bool atEnd() const { return m_pos >= m_text.size(); }
    QString next() { return nextView().toString(); }
    // The same field as a view into the text, which stays valid as long as the reader.
    QStringView nextView();

private:
    QString m_text;
    qsizetype m_pos = 0;
};

// The same over the bytes of a file as they stand on disk, so a large file is read without first turning all
// of it into text; the fields are single-byte text to be decoded by the caller.
class ByteFieldReader {
public:
    explicit ByteFieldReader(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    bool atEnd() const { return m_pos >= m_bytes.size(); }
    QLatin1String nextView();

private:
    QByteArray m_bytes;
    qsizetype m_pos = 0;
};
