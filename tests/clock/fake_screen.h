#pragma once

#include "clock/docking_handler.h"
#include "clock/screen_services.h"
#include "platform/numeric.h"

#include <vector>

// A screen of a given density with a work area and a pointer the test sets.
struct FakeScreen : ScreenServices {
    int32_t logPixels = 120;
    PixelRect workArea{0, 0, 1024, 720};
    QPoint cursor;
    std::vector<QPoint> cursorMoves;

    explicit FakeScreen(int32_t dpi = 120) : logPixels(dpi) {}
    int32_t LogPixelsX() const override { return logPixels; }
    float TwipsPerPixelX() const override { return 1440.0f / logPixels; }
    float TwipsPerPixelY() const override { return 1440.0f / logPixels; }
    int32_t ScreenWidth() const override { return 1024; }
    bool GetWorkArea(PixelRect& area) const override {
        area = workArea;
        return true;
    }
    QPoint GetCursorPos() const override { return cursor; }
    void SetCursorPos(int32_t x, int32_t y) override {
        cursor = QPoint(x, y);
        cursorMoves.push_back(cursor);
    }
};

// A window that lands on whole pixels and reports its place in twips, as a real one does.
struct FakeDockWindow : DockWindow {
    struct Call {
        int32_t insertAfter, x, y, cx, cy;
    };
    const ScreenServices& screen;
    float left = 0, top = 0, width = 3000, height = 1020;
    std::vector<Call> calls;

    explicit FakeDockWindow(const ScreenServices& s) : screen(s) {}
    float Left() const override { return left; }
    float Top() const override { return top; }
    float Width() const override { return width; }
    float Height() const override { return height; }
    void SetWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) override {
        calls.push_back({insertAfter, x, y, cx, cy});
        left = x * screen.TwipsPerPixelX();
        top = y * screen.TwipsPerPixelY();
        width = cx * screen.TwipsPerPixelX();
        height = cy * screen.TwipsPerPixelY();
    }
};
