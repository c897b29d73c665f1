#pragma once

#include "engine/list_model.h"

// Today's lists: the coming alarms in time order (row 0 is the next to ring), their messages, and the copy
// of the messages that the message view uses up. A message belongs to an alarm by the equal time at the end
// of both rows.
struct DayLists {
    ListModel alarms;
    ListModel messages;
    ListModel shadowMessages;
};
