#pragma once

#include "clock/screen_services.h"

class QScreen;

// The primary screen through Qt. Pixels are device pixels: logical coordinates times the device pixel ratio.
class QtScreenServices : public ScreenServices {
public:
    int32_t LogPixelsX() const override;
    float TwipsPerPixelX() const override;
    float TwipsPerPixelY() const override;
    int32_t ScreenWidth() const override;
    bool GetWorkArea(PixelRect& area) const override;
    QPoint GetCursorPos() const override;
    void SetCursorPos(int32_t x, int32_t y) override;

private:
    static QScreen* screen();
};
