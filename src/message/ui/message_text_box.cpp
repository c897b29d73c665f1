#include "message/ui/message_text_box.h"

#include "message/message_text.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>

MessageTextBox::MessageTextBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
}

QString MessageTextBox::message() const {
    return message_text::stored(toPlainText());
}

void MessageTextBox::setMessage(const QString& message) {
    setPlainText(message_text::shown(message));
}

QString MessageTextBox::fitting(const QString& inserted) const {
    return message_text::fitting(toPlainText(), textCursor().selectedText(), inserted);
}

void MessageTextBox::keyPressEvent(QKeyEvent* event) {
    const bool newLine = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString text = event->text();
    const bool printable = !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.isPrint() || c.category() == QChar::Other_PrivateUse;
    });
    if (!newLine && !printable) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    const QString inserted = newLine ? QStringLiteral("\n") : text;
    const QString fits = fitting(inserted);
    if (fits.size() < inserted.size()) {
        // The box is full: the key goes nowhere.
        event->accept();
        return;
    }
    if (fits == inserted) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    QKeyEvent turned(event->type(), event->key(), event->modifiers(), fits, event->isAutoRepeat(),
                     static_cast<ushort>(event->count()));
    QPlainTextEdit::keyPressEvent(&turned);
    event->setAccepted(turned.isAccepted());
}

void MessageTextBox::insertFromMimeData(const QMimeData* source) {
    if (!source || !source->hasText())
        return;
    const QString fits = fitting(message_text::shown(source->text()));
    if (!fits.isEmpty())
        insertPlainText(fits);
}

void MessageTextBox::inputMethodEvent(QInputMethodEvent* event) {
    const QString commit = event->commitString();
    const QString fits = commit.isEmpty() ? commit : fitting(commit);
    if (fits == commit) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent turned(event->preeditString(), event->attributes());
    turned.setCommitString(fits, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&turned);
    event->setAccepted(turned.isAccepted());
}
