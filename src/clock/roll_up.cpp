#include "clock/roll_up.h"

#include "clock/screen_services.h"
#include "platform/numeric.h"

namespace roll_up {

float rolledUpTop(int32_t logPixelsX, float twipsPerPixelY, float imageHeight) {
    if (logPixelsX > 96)
        return twipsPerPixelY - imageHeight;
    return 2 * twipsPerPixelY - imageHeight;
}

void movePointerOffStrip(ScreenServices& screen) {
    const QPoint ptCursor = screen.cursorPos();
    screen.setCursorPos(ptCursor.x(), static_cast<int32_t>(roundHalfEven(ptCursor.y() + screen.twipsPerPixelX())));
}

} // namespace roll_up
