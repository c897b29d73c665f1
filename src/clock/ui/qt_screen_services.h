#pragma once

#include "clock/screen_services.h"

class QScreen;

// The primary screen. Pixels are device pixels: the X server's own figures on X11, elsewhere Qt's logical
// coordinates times the device pixel ratio.
class QtScreenServices : public ScreenServices {
public:
    int32_t logPixelsX() const override;
    float twipsPerPixelX() const override;
    float twipsPerPixelY() const override;
    int32_t screenWidth() const override;
    bool getWorkArea(PixelRect& area) const override;
    QPoint cursorPos() const override;
    void setCursorPos(int32_t x, int32_t y) override;
    bool moveWindow(const QWindow& window, const QPoint& place) override;
    std::optional<QPoint> windowPlace(const QWindow& window) const override;

private:
    static QScreen* screen();
};
