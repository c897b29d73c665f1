#include "platform/field_reader.h"

namespace {

char16_t codeAt(QStringView text, qsizetype i) {
    return text[i].unicode();
}
char16_t codeAt(QLatin1String text, qsizetype i) {
    return static_cast<uchar>(text[i].toLatin1());
}

bool isLineEnd(char16_t c) {
    return c == u'\r' || c == u'\n';
}

template <typename View> View nextField(View text, qsizetype& pos) {
    const qsizetype size = text.size();
    while (pos < size && (codeAt(text, pos) == u' ' || codeAt(text, pos) == u'\t'))
        ++pos;

    View field;
    if (pos < size && codeAt(text, pos) == u'"') {
        const qsizetype start = pos + 1;
        qsizetype close = text.indexOf(QLatin1Char('"'), start);
        if (close < 0)
            close = size;
        field = text.mid(start, close - start);
        pos = close + 1;
        while (pos < size && codeAt(text, pos) != u',' && !isLineEnd(codeAt(text, pos)))
            ++pos;
    } else {
        const qsizetype start = pos;
        while (pos < size && codeAt(text, pos) != u',' && !isLineEnd(codeAt(text, pos)))
            ++pos;
        field = text.mid(start, pos - start);
    }
    if (pos < size && codeAt(text, pos) == u',') {
        ++pos;
    } else {
        // CR LF counts as one line end, as do a lone CR or LF.
        if (pos < size && codeAt(text, pos) == u'\r')
            ++pos;
        if (pos < size && codeAt(text, pos) == u'\n')
            ++pos;
    }
    return field;
}

} // namespace

QStringView FieldReader::nextView() {
    return nextField(QStringView(m_text), m_pos);
}

QLatin1String ByteFieldReader::nextView() {
    return nextField(QLatin1String(m_bytes.constData(), m_bytes.size()), m_pos);
}
