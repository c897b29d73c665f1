#include "platform/cp1252.h"

#include <QStringList>

#include <array>

namespace {

// 0x80..0x9F; the five bytes the code page leaves open map to the C1 controls of the same value,
// so that any byte sequence reads and writes back unchanged.
constexpr std::array<char16_t, 32> kHigh = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The byte for c, or -1 when the code page has none.
int byteFor(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<int>(c);
    for (std::size_t i = 0; i < kHigh.size(); ++i) {
        if (kHigh[i] == c)
            return static_cast<int>(0x80 + i);
    }
    return -1;
}

char encodeOne(char16_t c) {
    const int byte = byteFor(c);
    return byte < 0 ? '?' : static_cast<char>(byte);
}

} // namespace

QByteArray toCp1252(const QString& text) {
    QByteArray out;
    appendCp1252(out, text);
    return out;
}

void appendCp1252(QByteArray& out, QStringView text) {
    const qsizetype start = out.size();
    out.resize(start + text.size());
    char* dst = out.data() + start;
    for (const QChar c : text)
        *dst++ = encodeOne(c.unicode());
}

void appendFromCp1252(QString& out, QLatin1String bytes) {
    const qsizetype start = out.size();
    out += bytes;
    QChar* dst = out.data() + start;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto u = static_cast<unsigned char>(bytes[i].toLatin1());
        if (static_cast<unsigned char>(u - 0x80) < 0x20)
            dst[i] = QChar(kHigh[u - 0x80]);
    }
}

QChar* decodeCp1252(QChar* dst, QLatin1String bytes) {
    const auto* in = reinterpret_cast<const unsigned char*>(bytes.data());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const unsigned char u = in[i];
        dst[i] = static_cast<unsigned char>(u - 0x80) < 0x20 ? QChar(kHigh[u - 0x80]) : QChar(u);
    }
    return dst + bytes.size();
}

QString fromCp1252(const QByteArray& bytes) {
    // Latin-1 but for 0x80..0x9F: convert the fast way, then mend those few, if any.
    QString out = QString::fromLatin1(bytes);
    const auto* in = reinterpret_cast<const unsigned char*>(bytes.constData());
    bool any = false;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        any |= static_cast<unsigned char>(in[i] - 0x80) < 0x20;
    if (!any)
        return out;
    QChar* dst = out.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (static_cast<unsigned char>(in[i] - 0x80) < 0x20)
            dst[i] = QChar(kHigh[in[i] - 0x80]);
    }
    return out;
}

Cp1252Fit cp1252Fit(QStringView text) {
    Cp1252Fit fit;
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t c = text[i].unicode();
        // A pair of surrogates is one character; a lone one is a character of its own that no file holds.
        if (QChar::isHighSurrogate(c) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        ++fit.bytes;
        if (byteFor(c) < 0 && !fit.unheld.contains(c))
            fit.unheld.append(c);
    }
    return fit;
}

QString unheldNames(const QList<char32_t>& unheld) {
    QStringList names;
    for (const char32_t c : unheld) {
        if (QChar::isPrint(c) && !QChar::isSurrogate(c))
            names.append(QString::fromUcs4(&c, 1));
        else
            names.append(QStringLiteral("U+%1").arg(static_cast<uint>(c), 4, 16, QLatin1Char('0')).toUpper());
    }
    return names.join(QLatin1Char(' '));
}
