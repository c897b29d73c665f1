#include "clock/clock_face.h"

#include "platform/numeric.h"

namespace {
constexpr int32_t kLowBandMax = 96;
constexpr int32_t kDesignBandMax = 120;
constexpr double kDesignTwipsPerPixel = 12.0;

double share(int32_t dpiOffset) {
    return dpiOffset / kDesignTwipsPerPixel;
}

void shrinkFont(ClockFace& face, int32_t dpiOffset) {
    face.labelFontSize = static_cast<float>(face.labelFontSize - face.labelFontSize * share(dpiOffset));
}
} // namespace

int32_t dpiOffsetOf(int32_t logPixelsX, float twipsPerPixelX) {
    if (logPixelsX <= kLowBandMax)
        return static_cast<int32_t>(roundHalfEven(twipsPerPixelX - kDesignTwipsPerPixel));
    if (logPixelsX > kDesignBandMax)
        return static_cast<int32_t>(roundHalfEven(kDesignTwipsPerPixel - twipsPerPixelX));
    return 0;
}

float clockSizeTop(int32_t size) {
    return static_cast<float>(12 * (11 - size));
}

void applyStoredClockSize(ClockFace& face, bool matched, int32_t storedSize) {
    if (!matched || storedSize < 8 || storedSize > 12)
        return;
    face.labelFontSize = static_cast<float>(storedSize);
    // 12 is not on the menu and keeps the design top.
    if (storedSize <= 11)
        face.labelTop = clockSizeTop(storedSize);
}

void applyDensityCorrections(ClockFace& face, int32_t logPixelsX, int32_t dpiOffset, int32_t storedValue,
                             float twipsPerPixelY) {
    const double k = share(dpiOffset);
    if (logPixelsX <= kLowBandMax) {
        // Wider in twips, so the same pixels; the font stays and comes out smaller in pixels.
        face.labelWidth = static_cast<float>(face.labelWidth + face.labelWidth * k);
        face.labelLeft = static_cast<float>(face.labelLeft + face.labelLeft * k);
        face.closeLeft = static_cast<float>(face.closeLeft + face.closeLeft * k);
        if (storedValue == 10 || storedValue == 11)
            face.labelTop = static_cast<float>(face.labelTop + 2.0 * twipsPerPixelY);
    } else if (logPixelsX > kDesignBandMax) {
        face.labelWidth = static_cast<float>(face.labelWidth - face.labelWidth * k);
        face.closeLeft = static_cast<float>(face.closeLeft - face.closeLeft * k);
        if (face.labelFontSize == 8.0f)
            face.labelTop = static_cast<float>(face.labelTop - twipsPerPixelY);
        shrinkFont(face, dpiOffset);
    }
}

void chooseClockSize(ClockFace& face, int32_t size, int32_t logPixelsX, int32_t dpiOffset, float twipsPerPixelY) {
    face.labelFontSize = static_cast<float>(size);
    face.labelTop = clockSizeTop(size);
    if (logPixelsX > kDesignBandMax) {
        shrinkFont(face, dpiOffset);
        if (size == 8)
            face.labelTop = static_cast<float>(face.labelTop - twipsPerPixelY);
    }
    if ((size == 10 || size == 11) && logPixelsX <= kLowBandMax)
        face.labelTop = static_cast<float>(face.labelTop + 2.0 * twipsPerPixelY);
}
