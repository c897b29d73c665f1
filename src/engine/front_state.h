#pragma once

#include <cstdint>

// Our windows that act modal without being so keep one another in front by numbers: the claimant is the
// number that holds the front now. Warnings are numbered from nextWarningSerial, and the tray's clicks are
// ignored while a system-modal box is up.
struct FrontState {
    int32_t claimant = 0;
    int32_t nextWarningSerial = 0;
    bool trayEnabled = false;
};
