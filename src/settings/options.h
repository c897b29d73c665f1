#pragma once

#include <cstdint>

// The options in force, as the Settings window last set them.
struct Options {
    bool soundOn = false;
    bool errorPopups = false;
    bool noSecond = false;
    bool internalSpeaker = false;
    bool speakerInsteadOfMidi = false;
    int16_t fontChoice = 0; // 1 Arial, 2 Times New Roman, 3 as laid out
};
