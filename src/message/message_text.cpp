#include "message/message_text.h"

namespace message_text {

namespace {
bool isLineBreak(QChar c) {
    return c == QLatin1Char('\n') || c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
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
    for (const QChar c : shown)
        n += isLineBreak(c) ? 2 : 1;
    return n;
}

QString fitting(QStringView boxText, QStringView replaced, const QString& inserted) {
    int room = kMaxLength - (length(boxText) - length(replaced));
    QString out;
    for (const QChar c : inserted) {
        const int need = isLineBreak(c) ? 2 : 1;
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
