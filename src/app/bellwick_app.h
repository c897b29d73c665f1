#pragma once

// Builds the program's parts, starts it and runs until Remove.
namespace BellwickApp {
int run();
}
