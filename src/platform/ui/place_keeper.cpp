#include "platform/ui/place_keeper.h"

#include <QEvent>
#include <QWidget>
#include <QWindow>

void PlaceKeeper::keep(QWidget* window) {
    window->installEventFilter(new PlaceKeeper(window));
}

bool PlaceKeeper::eventFilter(QObject* watched, QEvent* event) {
    auto* window = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Hide && !window->isVisible() && !window->isMinimized()) {
        m_place = window->geometry().topLeft();
        m_known = true;
    } else if (event->type() == QEvent::Show && m_known) {
        // Sent before the window is mapped: the place goes out with it.
        m_known = false;
        // Through the native window: a move to where Qt already thinks the window stands would be dropped,
        // and the window manager would place it anew.
        if (QWindow* handle = window->windowHandle())
            handle->setPosition(m_place);
        else
            window->move(m_place - (window->geometry().topLeft() - window->pos()));
    }
    return false;
}
