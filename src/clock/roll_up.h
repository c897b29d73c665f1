#pragma once

#include <cstdint>

class ScreenServices;

// The clock released above the screen's top edge hides behind it, with a thin strip left in sight.
namespace roll_up {

// Top in twips, from the height of the end image as it reports it.
float rolledUpTop(int32_t logPixelsX, float twipsPerPixelY, float imageHeight);

// Takes the pointer off the strip, so the window's next mouse move doesn't bring it back at once.
// The step is twipsPerPixelX used as a number of pixels: 15 at 96 dots per inch, 12 at 120.
void movePointerOffStrip(ScreenServices& screen);

} // namespace roll_up
