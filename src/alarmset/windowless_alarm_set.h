#pragma once

#include "alarmset/alarm_set_settings.h"
#include "engine/alarm_set_ui.h"

// The Alarm Set window where none is built (tests, tools): touching it loads its data, and the requests
// to its controls go nowhere.
class WindowlessAlarmSet : public AlarmSetUi {
public:
    explicit WindowlessAlarmSet(Context& ctx) : m_ctx(ctx) {}
    void load() override { loadAlarmSetData(m_ctx); }
    void requestUnload() override {}
    void chimeControlsChanged() override {}
    void setNoSecondMode(bool) override {}

private:
    Context& m_ctx;
};
