#pragma once

class Context;

// Rewrites future.dat from the rows of the event list, telling the user when that failed.
void RewriteScheduleFromList(Context& ctx);
