#pragma once

#include <cstdint>

class ScreenServices;

// The window a docking handler moves: its place in twips and the one call that moves and restacks it.
class DockWindow {
public:
    virtual ~DockWindow() = default;
    virtual float leftTwips() const = 0;
    virtual float topTwips() const = 0;
    virtual float widthTwips() const = 0;
    virtual float heightTwips() const = 0;
    // Moves, sizes and restacks in one step; pixels; insertAfter is kHwndTopmost or kHwndNoTopmost.
    virtual void setWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) = 0;
};

// Drags a borderless window with the mouse and snaps it to the edges of the work area.
// The window forwards its own mouse events; there is no timer and no hook. The edge flags outlive a drag.
class DockingHandler {
public:
    static constexpr int32_t kHwndTopmost = -1;
    static constexpr int32_t kHwndNoTopmost = -2;

    explicit DockingHandler(ScreenServices& screen);

    // X and Y: the pointer inside the gripped control, in twips.
    void startDrag(float X, float Y);
    void updateDrag(float X, float Y);

    DockWindow* window() const { return m_window; }
    void setWindow(DockWindow* form) { m_window = form; }
    bool alwaysOnTop() const { return m_alwaysOnTop; }
    void setAlwaysOnTop(bool value);
    int32_t snapDistance() const { return m_snapDistance; }
    void setSnapDistance(int32_t twipValue) { m_snapDistance = twipValue; }

    // Held at an edge.
    bool dockedRight() const { return m_dockedRight; }
    bool dockedLeft() const { return m_dockedLeft; }
    bool dockedTop() const { return m_dockedTop; }
    bool dockedBottom() const { return m_dockedBottom; }

private:
    ScreenServices& m_screen;
    DockWindow* m_window = nullptr;
    bool m_alwaysOnTop = false;
    int32_t m_snapDistance = 0;
    float m_gripX = 0;
    float m_gripY = 0;
    // Work area of the last press, in twips.
    int32_t m_workLeft = 0;
    int32_t m_workTop = 0;
    int32_t m_workRight = 0;
    int32_t m_workBottom = 0;
    bool m_dockedRight = false;
    bool m_dockedLeft = false;
    bool m_dockedTop = false;
    bool m_dockedBottom = false;
    int32_t m_insertAfter = kHwndNoTopmost;
};
