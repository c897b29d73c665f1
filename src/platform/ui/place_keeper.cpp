#include "platform/ui/place_keeper.h"

#include "platform/ui/window_place.h"

#include <QEvent>
#include <QWidget>
#include <QWindow>

void PlaceKeeper::keep(QWidget* window) {
    window->installEventFilter(new PlaceKeeper(window));
}

bool PlaceKeeper::eventFilter(QObject* watched, QEvent* event) {
    auto* window = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Move && window->isVisible() && !window->isMinimized()) {
        // Read while the window is framed: once hidden, the manager has taken its frame away.
        const std::optional<QPoint> corner = window_place::nativeTopLeft(*window);
        m_corner = corner.value_or(QPoint());
        m_cornerSeen = corner.has_value();
    } else if (event->type() == QEvent::Hide && !window->isVisible() && !window->isMinimized()) {
        m_place = window->geometry().topLeft();
        m_known = true;
    } else if (event->type() == QEvent::Show && m_known) {
        // Sent before the window is mapped: the place goes out with it.
        m_known = false;
        if (m_cornerSeen) {
            window_place::move(*window, m_corner);
        } else if (QWindow* handle = window->windowHandle()) {
            // Through the native window: a move to where Qt already thinks the window stands would be dropped,
            // and the window manager would place it anew.
            handle->setPosition(m_place);
        } else {
            window->move(m_place - (window->geometry().topLeft() - window->pos()));
        }
    }
    return false;
}
