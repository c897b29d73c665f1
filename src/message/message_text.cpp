#include "message/message_text.h"

#include "platform/cp1252.h"

namespace message_text {

namespace {
bool isLineBreak(QChar c) {
    return c == QLatin1Char('\n') || c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
}

// The low half of a surrogate pair: its character was counted with the high half.
bool secondOfPair(QStringView text, qsizetype i) {
    return i > 0 && text[i].isLowSurrogate() && text[i - 1].isHighSurrogate();
}
} // namespace

QChar typed(QChar key) {
    return key == QLatin1Char('"') ? QLatin1Char('\'') : key;
}

QString typed(QString keys) {
    for (QChar& c : keys)
        c = typed(c);
    return keys;
}

QString stored(const QString& shown) {
    QString out;
    out.reserve(shown.size() + shown.count(QLatin1Char('\n')));
    for (const QChar c : shown) {
        if (isLineBreak(c))
            out.append(QLatin1String("\r\n"));
        else
            out.append(c);
    }
    return out;
}

QString shown(const QString& stored) {
    return QString(stored).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

int length(QStringView shown) {
    int n = 0;
    for (qsizetype i = 0; i < shown.size(); ++i)
        n += isLineBreak(shown[i]) ? 2 : !secondOfPair(shown, i);
    return n;
}

QString unheldWarning(QStringView text) {
    const Cp1252Fit fit = cp1252Fit(text);
    return fit.fits() ? QString() : QStringLiteral("These characters cannot be stored: ") + unheldNames(fit.unheld);
}

QString refusal(QStringView shown) {
    if (length(shown) > kMaxLength)
        return QStringLiteral("Message longer than %1 characters").arg(kMaxLength);
    return unheldWarning(shown);
}

QString fitting(QStringView boxText, QStringView replaced, const QString& inserted) {
    int room = kMaxLength - (length(boxText) - length(replaced));
    QString out;
    for (qsizetype i = 0; i < inserted.size(); ++i) {
        const QChar c = inserted[i];
        const int need = isLineBreak(c) ? 2 : !secondOfPair(inserted, i);
        // The low half of a pair needs no room, so a pair is taken whole or not at all.
        if (need > room)
            break;
        room -= need;
        out.append(typed(c));
    }
    return out;
}

bool larger(double& pointSize) {
    if (pointSize >= 16.8)
        return false;
    pointSize += 1;
    return true;
}

bool smaller(double& pointSize) {
    if (pointSize <= 6)
        return false;
    pointSize -= 1;
    return true;
}

} // namespace message_text
