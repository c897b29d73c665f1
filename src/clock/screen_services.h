#pragma once

#include <QPoint>
#include <cstdint>
#include <optional>

class QWindow;

// A rectangle in pixels as the system hands it out: right and bottom lie just outside.
struct PixelRect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
};

// What the clock asks of the screen: its density, the work area and the pointer.
// Kept behind an interface so the docking and roll-up arithmetic runs without a display.
class ScreenServices {
public:
    virtual ~ScreenServices() = default;
    // GetDeviceCaps(LOGPIXELSX) of the screen.
    virtual int32_t logPixelsX() const = 0;
    virtual float twipsPerPixelX() const = 0;
    virtual float twipsPerPixelY() const = 0;
    // Width of the whole screen, in pixels.
    virtual int32_t screenWidth() const = 0;
    // SPI_GETWORKAREA: the desktop less the task bar, in pixels. Leaves the rectangle alone on failure.
    virtual bool getWorkArea(PixelRect& area) const = 0;
    virtual QPoint cursorPos() const = 0;
    virtual void setCursorPos(int32_t x, int32_t y) = 0;
    // A top-level window's top left corner, moved to or read in pixels. False or nothing where the platform
    // cannot: the window is then moved through Qt.
    virtual bool moveWindow(const QWindow&, const QPoint&) { return false; }
    virtual std::optional<QPoint> windowPlace(const QWindow&) const { return std::nullopt; }
};
