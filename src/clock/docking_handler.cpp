#include "clock/docking_handler.h"

#include "clock/screen_services.h"
#include "platform/numeric.h"

#include <cmath>

namespace {
int32_t rounded(double value) {
    return static_cast<int32_t>(roundHalfEven(value));
}

// Snap test of one edge; returns the new coordinate of that axis, or the proposed one.
int32_t snapEdge(bool& flag, int32_t gap, int32_t snapDistance, int32_t proposed, int32_t snapped, int32_t held) {
    const bool near = std::abs(static_cast<int64_t>(gap)) <= snapDistance;
    if (!flag) {
        if (near) {
            flag = true;
            return snapped;
        }
        return proposed;
    }
    if (near)
        return held;
    // Letting go: the proposed position stands, so the window jumps to the pointer.
    flag = false;
    return proposed;
}
} // namespace

DockingHandler::DockingHandler(ScreenServices& screen)
    : m_screen(screen), m_snapDistance(rounded(static_cast<double>(screen.twipsPerPixelX()) * 10)) {}

void DockingHandler::startDrag(float X, float Y) {
    PixelRect area{m_workLeft, m_workTop, m_workRight, m_workBottom};
    if (m_screen.getWorkArea(area)) {
        m_workLeft = area.left;
        m_workTop = area.top;
        m_workRight = area.right;
        m_workBottom = area.bottom;
    }
    const double tppX = m_screen.twipsPerPixelX();
    const double tppY = m_screen.twipsPerPixelY();
    m_workTop = rounded(m_workTop * tppY);
    m_workLeft = rounded(m_workLeft * tppX);
    m_workBottom = rounded(m_workBottom * tppY);
    m_workRight = rounded(m_workRight * tppX);
    m_gripX = X;
    m_gripY = Y;
}

void DockingHandler::updateDrag(float X, float Y) {
    if (!m_window)
        return;
    const int32_t dx = rounded(X - m_gripX);
    const int32_t dy = rounded(Y - m_gripY);
    if (dx == 0 && dy == 0)
        return;

    const double L = m_window->leftTwips();
    const double T = m_window->topTwips();
    const double W = m_window->widthTwips();
    const double H = m_window->heightTwips();

    // Every gap is taken from the proposed position, once, before any edge is tested.
    int32_t newLeft = rounded(L + dx);
    int32_t newTop = rounded(T + dy);
    const int32_t gapRight = rounded(m_workRight - (W + newLeft));
    const int32_t gapLeft = newLeft - m_workLeft;
    const int32_t gapBottom = rounded(m_workBottom - (H + newTop));
    const int32_t gapTop = newTop - m_workTop;

    // Bottom adds its gap to the present top, not the proposed one: the window rests dy short of flush.
    newTop = snapEdge(m_dockedBottom, gapBottom, m_snapDistance, newTop, rounded(T + gapBottom), rounded(T));
    newTop = snapEdge(m_dockedTop, gapTop, m_snapDistance, newTop, m_workTop, rounded(T));
    newLeft = snapEdge(m_dockedRight, gapRight, m_snapDistance, newLeft, rounded(m_workRight - W), rounded(L));
    newLeft = snapEdge(m_dockedLeft, gapLeft, m_snapDistance, newLeft, m_workLeft, rounded(L));

    const double tppX = m_screen.twipsPerPixelX();
    const double tppY = m_screen.twipsPerPixelY();
    m_window->setWindowPos(m_insertAfter, rounded(newLeft / tppX), rounded(newTop / tppY), rounded(W / tppX),
                           rounded(H / tppY));
}

void DockingHandler::setAlwaysOnTop(bool value) {
    m_alwaysOnTop = value;
    m_insertAfter = value ? kHwndTopmost : kHwndNoTopmost;
    if (!m_window)
        return;
    const double tppX = m_screen.twipsPerPixelX();
    const double tppY = m_screen.twipsPerPixelY();
    m_window->setWindowPos(m_insertAfter, rounded(m_window->leftTwips() / tppX), rounded(m_window->topTwips() / tppY),
                           rounded(m_window->widthTwips() / tppX), rounded(m_window->heightTwips() / tppY));
}
