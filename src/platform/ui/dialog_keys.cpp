#include "platform/ui/dialog_keys.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QWidget>

DialogKeys::DialogKeys(QWidget* window, QAbstractButton* cancel) : QObject(window), m_window(window), m_cancel(cancel) {
    window->installEventFilter(this);
}

bool DialogKeys::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_window || event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() & ~Qt::KeypadModifier)
        return false;
    if (key->key() == Qt::Key_Escape && m_cancel && m_cancel->isVisible() && m_cancel->isEnabled()) {
        m_cancel->click();
        return true;
    }
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        auto* focused = qobject_cast<QAbstractButton*>(m_window->focusWidget());
        // A check or radio box is set with Space; Return on it stays with the window.
        if (focused && !qobject_cast<QCheckBox*>(focused) && !qobject_cast<QRadioButton*>(focused) &&
            focused->isEnabled()) {
            focused->click();
            return true;
        }
    }
    return false;
}
