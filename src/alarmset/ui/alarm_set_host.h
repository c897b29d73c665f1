#pragma once

#include "alarmset/ui/alarm_set_hooks.h"
#include "engine/alarm_set_ui.h"

#include <memory>

class Context;
class AlarmSetWindow;
class QMenu;

// Owns the Alarm Set window for the engine: builds it at the first touch and turns every request to
// unload it into hiding it.
class AlarmSetHost : public AlarmSetUi {
public:
    explicit AlarmSetHost(Context& ctx);
    ~AlarmSetHost() override;

    void load() override;
    void requestUnload() override;
    void chimeControlsChanged() override;
    void setNoSecondMode(bool on) override;
    void setTodayListShaded(bool shaded) override;

    // The tray's Alarm Set: the window stays up without alarms, and comes back from the taskbar.
    void showAlarmSet();

    // Without a notification area the window stands in for the tray: it opens, carries the tray's menu and
    // only minimises; null when a tray is there (again).
    void standInForTray(QMenu* trayMenu);

    // Null until the first touch.
    AlarmSetWindow* form() const { return m_form.get(); }

    // The windows the Alarm Set window opens; set them before or after the first touch.
    AlarmSetHooks hooks;

private:
    Context& m_ctx;
    std::unique_ptr<AlarmSetWindow> m_form;
    bool m_noSecond = false;
    QMenu* m_trayMenu = nullptr;
};
