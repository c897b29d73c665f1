#pragma once

#include <QStyledItemDelegate>

// Draws each row on one line: a message's line breaks show as blanks instead of making the row taller,
// so every row keeps the height the list's uniform sizing expects.
class SingleLineDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override;
};
