#pragma once

#include <cstdint>

class ScreenServices;

// The window a docking handler moves: its place in twips and the one call that moves and restacks it.
class DockWindow {
public:
    virtual ~DockWindow() = default;
    virtual float Left() const = 0;
    virtual float Top() const = 0;
    virtual float Width() const = 0;
    virtual float Height() const = 0;
    // Moves, sizes and restacks in one step; pixels; insertAfter is kHwndTopmost or kHwndNoTopmost.
    virtual void SetWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) = 0;
};

// Drags a borderless window with the mouse and snaps it to the edges of the work area.
// The window forwards its own mouse events; there is no timer and no hook. The edge flags outlive a drag.
class clsDockingHandler {
public:
    static constexpr int32_t kHwndTopmost = -1;
    static constexpr int32_t kHwndNoTopmost = -2;

    explicit clsDockingHandler(ScreenServices& screen);

    // X and Y: the pointer inside the gripped control, in twips.
    void StartDockDrag(float X, float Y);
    void UpdateDockDrag(float X, float Y);

    DockWindow* ParentForm() const { return m_parentForm; }
    void setParentForm(DockWindow* form) { m_parentForm = form; }
    bool AlwaysOnTop() const { return m_alwaysOnTop; }
    void setAlwaysOnTop(bool value);
    int32_t SnapDistance() const { return m_snapDistance; }
    void setSnapDistance(int32_t twipValue) { m_snapDistance = twipValue; }

    // Held at an edge.
    bool dockedRight() const { return blnDockedRight; }
    bool dockedLeft() const { return blnDockedLeft; }
    bool dockedTop() const { return blnDockedTop; }
    bool dockedBottom() const { return blnDockedBottom; }

private:
    ScreenServices& m_screen;
    DockWindow* m_parentForm = nullptr;
    bool m_alwaysOnTop = false;
    int32_t m_snapDistance = 0;
    float sngGripX = 0;
    float sngGripY = 0;
    // Work area of the last press, in twips.
    int32_t lngWorkLeft = 0;
    int32_t lngWorkTop = 0;
    int32_t lngWorkRight = 0;
    int32_t lngWorkBottom = 0;
    bool blnDockedRight = false;
    bool blnDockedLeft = false;
    bool blnDockedTop = false;
    bool blnDockedBottom = false;
    int32_t lngInsertAfter = kHwndNoTopmost;
};
