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
    face.lblFontSize = static_cast<float>(face.lblFontSize - face.lblFontSize * share(dpiOffset));
}
} // namespace

int32_t DpiOffset(int32_t logPixelsX, float twipsPerPixelX) {
    if (logPixelsX <= kLowBandMax)
        return static_cast<int32_t>(roundHalfEven(twipsPerPixelX - kDesignTwipsPerPixel));
    if (logPixelsX > kDesignBandMax)
        return static_cast<int32_t>(roundHalfEven(kDesignTwipsPerPixel - twipsPerPixelX));
    return 0;
}

float ClockSizeTop(int32_t size) {
    return static_cast<float>(12 * (11 - size));
}

void ApplyStoredClockSize(ClockFace& face, bool matched, int32_t storedSize) {
    if (!matched || storedSize < 8 || storedSize > 12)
        return;
    face.lblFontSize = static_cast<float>(storedSize);
    // 12 is not on the menu and keeps the design top.
    if (storedSize <= 11)
        face.lblTop = ClockSizeTop(storedSize);
}

void ApplyDensityCorrections(ClockFace& face, int32_t logPixelsX, int32_t dpiOffset, int32_t storedValue,
                             float twipsPerPixelY) {
    const double k = share(dpiOffset);
    if (logPixelsX <= kLowBandMax) {
        // Wider in twips, so the same pixels; the font stays and comes out smaller in pixels.
        face.lblWidth = static_cast<float>(face.lblWidth + face.lblWidth * k);
        face.lblLeft = static_cast<float>(face.lblLeft + face.lblLeft * k);
        face.closeLeft = static_cast<float>(face.closeLeft + face.closeLeft * k);
        if (storedValue == 10 || storedValue == 11)
            face.lblTop = static_cast<float>(face.lblTop + 2.0 * twipsPerPixelY);
    } else if (logPixelsX > kDesignBandMax) {
        face.lblWidth = static_cast<float>(face.lblWidth - face.lblWidth * k);
        face.closeLeft = static_cast<float>(face.closeLeft - face.closeLeft * k);
        if (face.lblFontSize == 8.0f)
            face.lblTop = static_cast<float>(face.lblTop - twipsPerPixelY);
        shrinkFont(face, dpiOffset);
    }
}

void ChooseClockSize(ClockFace& face, int32_t size, int32_t logPixelsX, int32_t dpiOffset, float twipsPerPixelY) {
    face.lblFontSize = static_cast<float>(size);
    face.lblTop = ClockSizeTop(size);
    if (logPixelsX > kDesignBandMax) {
        shrinkFont(face, dpiOffset);
        if (size == 8)
            face.lblTop = static_cast<float>(face.lblTop - twipsPerPixelY);
    }
    if ((size == 10 || size == 11) && logPixelsX <= kLowBandMax)
        face.lblTop = static_cast<float>(face.lblTop + 2.0 * twipsPerPixelY);
}
