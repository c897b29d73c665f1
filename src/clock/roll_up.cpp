#include "clock/roll_up.h"

#include "clock/screen_services.h"
#include "platform/numeric.h"

namespace roll_up {

float RolledUpTop(int32_t logPixelsX, float twipsPerPixelY, float imageHeight) {
    if (logPixelsX > 96)
        return twipsPerPixelY - imageHeight;
    return 2 * twipsPerPixelY - imageHeight;
}

void MovePointerOffStrip(ScreenServices& screen) {
    const QPoint ptCursor = screen.GetCursorPos();
    screen.SetCursorPos(ptCursor.x(), static_cast<int32_t>(roundHalfEven(ptCursor.y() + screen.TwipsPerPixelX())));
}

} // namespace roll_up
