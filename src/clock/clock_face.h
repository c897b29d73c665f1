#pragma once

#include <cstdint>

// The parts of the clock face that move with the text size and the density, in twips as the controls
// report them. Design values hold at 12 twips a pixel (120 dots per inch).
struct ClockFace {
    static constexpr float kFormWidth = 3000;
    static constexpr float kFormHeight = 1020;
    // Both end images (menuEnd at left 0, closeEnd) and the label share this height.
    static constexpr float kImageWidth = 144;
    static constexpr float kImageHeight = 252;
    static constexpr float kDesignFontSize = 9;

    float labelLeft = 120;
    float labelTop = 0;
    float labelWidth = 1572;
    float labelHeight = kImageHeight;
    float labelFontSize = kDesignFontSize;
    float closeLeft = 1680;
};

// Distance of the screen's twips per pixel from the design figure 12; 0 in the design band 97 to 120.
int32_t dpiOffsetOf(int32_t logPixelsX, float twipsPerPixelX);

// Top of the label for a text size: each point lifts it by one design pixel.
float clockSizeTop(int32_t size);

// Text size at load. matched: the size record carried its key; values outside 8 to 12 are ignored.
void applyStoredClockSize(ClockFace& face, bool matched, int32_t storedSize);

// Load-time corrections that keep the face on the same pixels within the fixed outline.
// storedValue is value1 as read from the size record (0 when none was read).
void applyDensityCorrections(ClockFace& face, int32_t logPixelsX, int32_t dpiOffset, int32_t storedValue,
                             float twipsPerPixelY);

// A size chosen from the menu (8 to 11). Sets absolute values, so repeated choices don't pile up.
void chooseClockSize(ClockFace& face, int32_t size, int32_t logPixelsX, int32_t dpiOffset, float twipsPerPixelY);
