#include "eventlist/ui/single_line_delegate.h"

QString SingleLineDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    if (value.typeId() != QMetaType::QString)
        return QStyledItemDelegate::displayText(value, locale);
    // The base turns line feeds into line separators, so the breaks go before it sees the text.
    QString text = value.toString();
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar& c : text) {
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n'))
            c = QLatin1Char(' ');
    }
    return QStyledItemDelegate::displayText(text, locale);
}
