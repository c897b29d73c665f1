#pragma once

#include <QString>

class Context;

// Shows the first message of this time in a new message window and takes it off the list.
void showAlarmMessage(Context& ctx, const QString& alarmTime);
