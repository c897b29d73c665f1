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
    // With `native` set, windows are moved here in pixels and stand where `windowAt` says.
    bool native = false;
    std::vector<QPoint> windowMoves;
    QPoint windowAt;

    explicit FakeScreen(int32_t dpi = 120) : logPixels(dpi) {}
    int32_t logPixelsX() const override { return logPixels; }
    float twipsPerPixelX() const override { return 1440.0f / logPixels; }
    float twipsPerPixelY() const override { return 1440.0f / logPixels; }
    int32_t screenWidth() const override { return 1024; }
    bool getWorkArea(PixelRect& area) const override {
        area = workArea;
        return true;
    }
    QPoint cursorPos() const override { return cursor; }
    void setCursorPos(int32_t x, int32_t y) override {
        cursor = QPoint(x, y);
        cursorMoves.push_back(cursor);
    }
    bool moveWindow(const QWindow&, const QPoint& place) override {
        if (native) {
            windowMoves.push_back(place);
            windowAt = place;
        }
        return native;
    }
    std::optional<QPoint> windowPlace(const QWindow&) const override {
        return native ? std::optional<QPoint>(windowAt) : std::nullopt;
    }
};

// A window that lands on whole pixels and reports its place in twips, as a real one does.
struct FakeDockWindow : DockWindow {
    struct Call {
        int32_t insertAfter, x, y, cx, cy;
        bool operator==(const Call&) const = default;
    };
    const ScreenServices& screen;
    float left = 0, top = 0, width = 3000, height = 1020;
    std::vector<Call> calls;

    explicit FakeDockWindow(const ScreenServices& s) : screen(s) {}
    float leftTwips() const override { return left; }
    float topTwips() const override { return top; }
    float widthTwips() const override { return width; }
    float heightTwips() const override { return height; }
    void setWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) override {
        calls.push_back({insertAfter, x, y, cx, cy});
        left = x * screen.twipsPerPixelX();
        top = y * screen.twipsPerPixelY();
        width = cx * screen.twipsPerPixelX();
        height = cy * screen.twipsPerPixelY();
    }
};
