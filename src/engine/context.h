#pragma once

#include "engine/event_checker.h"
#include "engine/list_model.h"
#include "engine/module1.h"
#include "eventlist/bwklistbox.h"
#include "settings/form7_options.h"

#include <functional>

class AlarmSound;
class Clock;
class Form4Ui;
class Notices;

// Everything the alarm engine works on: the shared variables, the day's lists of the Alarm Set window
// and the services it calls. Windows hold a reference to it; tests build one over fakes.
class Context {
public:
    Context(Clock& clock, Notices& notices, AlarmSound& sound);

    Clock& clock;
    Notices& notices;
    AlarmSound& sound;

    Module1 m;
    Form8Members form8;

    // Data of the Alarm Set window; touch it through touchForm4() first.
    ListModel lstData;
    ListModel lstMessage;
    ListModel lstShadowMessage;
    Bwklistbox Bwklistbox1;
    QString strTimesOfPlay;
    EventChecker::EveryControls everyControls;

    Form4Ui* form4Ui = nullptr;
    // The Settings window's boxes; loading it (also hidden) turns the saved options into variables.
    Form7Options form7;
    // Stops and starts the 800 ms timer of the tick (while a system-modal box is up).
    std::function<void(bool)> setTimer1Enabled = [](bool) {};

    // Loads the Alarm Set window the first time anything touches it; true when this touch loaded it.
    bool touchForm4();
    bool form4Loaded() const { return m_form4Loaded; }
    // The window asks to go; it only hides.
    void unloadForm4();
    void unloadForm8() { form8 = Form8Members(); }

    QString appFile(const QString& name) const { return m.strAppPath + name; }

private:
    bool m_form4Loaded = false;
};

// The load steps of the Alarm Set window that need no widget.
void Form4LoadCore(Context& ctx);
