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

clsDockingHandler::clsDockingHandler(ScreenServices& screen)
    : m_screen(screen), m_snapDistance(rounded(static_cast<double>(screen.TwipsPerPixelX()) * 10)) {}

void clsDockingHandler::StartDockDrag(float X, float Y) {
    PixelRect area{lngWorkLeft, lngWorkTop, lngWorkRight, lngWorkBottom};
    if (m_screen.GetWorkArea(area)) {
        lngWorkLeft = area.left;
        lngWorkTop = area.top;
        lngWorkRight = area.right;
        lngWorkBottom = area.bottom;
    }
    const double tppX = m_screen.TwipsPerPixelX();
    const double tppY = m_screen.TwipsPerPixelY();
    lngWorkTop = rounded(lngWorkTop * tppY);
    lngWorkLeft = rounded(lngWorkLeft * tppX);
    lngWorkBottom = rounded(lngWorkBottom * tppY);
    lngWorkRight = rounded(lngWorkRight * tppX);
    sngGripX = X;
    sngGripY = Y;
}

void clsDockingHandler::UpdateDockDrag(float X, float Y) {
    if (!m_parentForm)
        return;
    const int32_t dx = rounded(X - sngGripX);
    const int32_t dy = rounded(Y - sngGripY);
    if (dx == 0 && dy == 0)
        return;

    const double L = m_parentForm->Left();
    const double T = m_parentForm->Top();
    const double W = m_parentForm->Width();
    const double H = m_parentForm->Height();

    // Every gap is taken from the proposed position, once, before any edge is tested.
    int32_t newLeft = rounded(L + dx);
    int32_t newTop = rounded(T + dy);
    const int32_t gapRight = rounded(lngWorkRight - (W + newLeft));
    const int32_t gapLeft = newLeft - lngWorkLeft;
    const int32_t gapBottom = rounded(lngWorkBottom - (H + newTop));
    const int32_t gapTop = newTop - lngWorkTop;

    // Bottom adds its gap to the present top, not the proposed one: the window rests dy short of flush.
    newTop = snapEdge(blnDockedBottom, gapBottom, m_snapDistance, newTop, rounded(T + gapBottom), rounded(T));
    newTop = snapEdge(blnDockedTop, gapTop, m_snapDistance, newTop, lngWorkTop, rounded(T));
    newLeft = snapEdge(blnDockedRight, gapRight, m_snapDistance, newLeft, rounded(lngWorkRight - W), rounded(L));
    newLeft = snapEdge(blnDockedLeft, gapLeft, m_snapDistance, newLeft, lngWorkLeft, rounded(L));

    const double tppX = m_screen.TwipsPerPixelX();
    const double tppY = m_screen.TwipsPerPixelY();
    m_parentForm->SetWindowPos(lngInsertAfter, rounded(newLeft / tppX), rounded(newTop / tppY), rounded(W / tppX),
                               rounded(H / tppY));
}

void clsDockingHandler::setAlwaysOnTop(bool value) {
    m_alwaysOnTop = value;
    lngInsertAfter = value ? kHwndTopmost : kHwndNoTopmost;
    if (!m_parentForm)
        return;
    const double tppX = m_screen.TwipsPerPixelX();
    const double tppY = m_screen.TwipsPerPixelY();
    m_parentForm->SetWindowPos(lngInsertAfter, rounded(m_parentForm->Left() / tppX),
                               rounded(m_parentForm->Top() / tppY), rounded(m_parentForm->Width() / tppX),
                               rounded(m_parentForm->Height() / tppY));
}
