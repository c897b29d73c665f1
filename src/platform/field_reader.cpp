#include "platform/field_reader.h"

namespace {
bool isLineEnd(QChar c) {
    return c == QLatin1Char('\r') || c == QLatin1Char('\n');
}
} // namespace

void FieldReader::skipLineEnd() {
    // CR LF counts as one line end, as do a lone CR or LF.
    if (m_pos < m_text.size() && m_text[m_pos] == QLatin1Char('\r'))
        ++m_pos;
    if (m_pos < m_text.size() && m_text[m_pos] == QLatin1Char('\n'))
        ++m_pos;
}

QString FieldReader::next() {
    const qsizetype size = m_text.size();
    while (m_pos < size && (m_text[m_pos] == QLatin1Char(' ') || m_text[m_pos] == QLatin1Char('\t')))
        ++m_pos;

    QString field;
    if (m_pos < size && m_text[m_pos] == QLatin1Char('"')) {
        const qsizetype start = m_pos + 1;
        qsizetype close = m_text.indexOf(QLatin1Char('"'), start);
        if (close < 0)
            close = size;
        field = m_text.mid(start, close - start);
        m_pos = close + 1;
        while (m_pos < size && m_text[m_pos] != QLatin1Char(',') && !isLineEnd(m_text[m_pos]))
            ++m_pos;
    } else {
        const qsizetype start = m_pos;
        while (m_pos < size && m_text[m_pos] != QLatin1Char(',') && !isLineEnd(m_text[m_pos]))
            ++m_pos;
        field = m_text.mid(start, m_pos - start);
    }
    if (m_pos < size && m_text[m_pos] == QLatin1Char(','))
        ++m_pos;
    else
        skipLineEnd();
    return field;
}
