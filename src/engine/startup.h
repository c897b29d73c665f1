#pragma once

#include <functional>

class Context;

// The start of the program after the single-instance test: start values, then the saved settings, which
// may load the day's data file, the Settings options and the desktop clock.
struct StartupHooks {
    // Shows the desktop clock with its On entry ticked.
    std::function<void()> showSmallClock;
};
void startUp(Context& ctx, const StartupHooks& hooks);
