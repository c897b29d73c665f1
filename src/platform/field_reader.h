#pragma once

#include <QString>

// Reads the fields of our quoted record files one at a time:
// leading blanks and tabs are skipped; a quoted field runs to the next quote, line breaks included,
// and the rest up to the next comma or line end is dropped; an unquoted field runs to the next
// comma or line end.
class FieldReader {
public:
    explicit FieldReader(QString text) : m_text(std::move(text)) {}

    bool atEnd() const { return m_pos >= m_text.size(); }
    QString next();

private:
    void skipLineEnd();

    QString m_text;
    qsizetype m_pos = 0;
};
