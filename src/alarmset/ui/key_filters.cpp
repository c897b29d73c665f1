#include "alarmset/ui/key_filters.h"

#include "alarmset/time_input.h"
#include "platform/ui/typed_key.h"

#include <QComboBox>
#include <QKeyEvent>

bool TimeBoxKeys::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QComboBox*>(watched);
    if (!box)
        return false;
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (typesCharacter(key) && !timeBoxKeyPasses(m_ctx, key->text().at(0)))
            return true;
    } else if (!committedText(event).isEmpty()) {
        return true; // digits come as keys; composed characters are never digits
    } else if (event->type() == QEvent::KeyRelease) {
        QString text = box->currentText();
        timeBoxKeyReleased(m_ctx, text);
        if (text != box->currentText())
            box->setEditText(text);
    }
    return false;
}

bool NoTypedKeys::eventFilter(QObject*, QEvent* event) {
    if (!committedText(event).isEmpty())
        return true;
    if (event->type() != QEvent::KeyPress)
        return false;
    return typesCharacter(static_cast<QKeyEvent*>(event));
}
