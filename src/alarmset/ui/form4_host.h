#pragma once

#include "alarmset/ui/form4_hooks.h"
#include "engine/form4_ui.h"

#include <memory>

class Context;
class Form4;

// Owns the Alarm Set window for the engine: builds it at the first touch and turns every request to
// unload it into hiding it.
class Form4Host : public Form4Ui {
public:
    explicit Form4Host(Context& ctx);
    ~Form4Host() override;

    void Load() override;
    void RequestUnload() override;
    void EveryControlsChanged() override;
    void SetNoSecondMode(bool on) override;
    void SetDataListShaded(bool shaded) override;

    // The tray's Alarm Set: the window stays up without alarms, and comes back from the taskbar.
    void showAlarmSet();

    // Null until the first touch.
    Form4* form() const { return m_form.get(); }

    // The windows the Alarm Set window opens; set them before or after the first touch.
    Form4Hooks hooks;

private:
    Context& m_ctx;
    std::unique_ptr<Form4> m_form;
    bool m_noSecond = false;
};
