#pragma once

#include <QString>

// The wave file the alarms play, and whether the speaker sweeps on every tick until stopped.
struct SoundChoice {
    QString songPath;
    bool repeatSweep = false;
};
