#include "platform/ui/typed_key.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

bool typesCharacter(const QKeyEvent* key) {
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Delete:
    case Qt::Key_Escape:
        return false;
    default:
        return !key->text().isEmpty();
    }
}

QString committedText(const QEvent* event) {
    if (event->type() != QEvent::InputMethod)
        return {};
    return static_cast<const QInputMethodEvent*>(event)->commitString();
}
