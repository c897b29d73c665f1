#include "platform/twips.h"

#include "platform/numeric.h"

namespace twips {

int logPixels(double logicalDpi, double devicePixelRatio) {
    return static_cast<int>(roundHalfEven(logicalDpi * devicePixelRatio));
}

double twipsPerPixel(int logPixels) {
    return logPixels > 0 ? 1440.0 / logPixels : 15.0;
}

int toPixels(double twipValue, double twipsPerPixel) {
    return static_cast<int>(roundHalfEven(twipValue / twipsPerPixel));
}

double toTwips(int pixels, double twipsPerPixel) {
    return pixels * twipsPerPixel;
}

} // namespace twips
