#pragma once

class Context;

// Rewrites future.dat from the rows of the event list. A failure is told to the user; the rows stay as
// they are, so the list then shows a change the file does not hold. False when the file was not written.
bool saveAllEvents(Context& ctx);
