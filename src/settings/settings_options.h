#pragma once

#include "settings/settings_state.h"

class Context;

// The Settings window without its widgets, over the state the context keeps. Loading it turns the saved
// options into the options in force, so start-up loads it hidden; the window on screen shows the same state.
class SettingsOptions {
public:
    explicit SettingsOptions(Context& ctx);
    // Loads it the first time anything touches it; true when this touch loaded it.
    bool touch();
    // Design values, then the boxes from the variables and from records 4 and 8.
    void load();
    // Saves records 4 and 8 and unloads. Ending the program without closing saves nothing.
    void close();

    // Setting a box loads the window if needed and runs the box's click logic when its value changes.
    void setSoundOn(bool ticked);
    void setErrorPopups(bool ticked);
    void setAutoLoad(bool ticked);
    void setNoSecond(bool ticked);
    void setInternalSpeaker(bool ticked);
    void setSpeakerInsteadOfMidi(bool ticked);
    // Setting an option button always runs its click.
    void setFontChoice(int index);

    void nextPage();
    void testSpeaker();
    // Autostart on or off; the words and the beep come whatever the result.
    void autostartOn(const QString& programPath);
    void autostartOff();

private:
    bool set(bool SettingsBoxes::*box, bool ticked);
    void applyTestRule();
    void autostartDone();
    void notify();

    Context& ctx;
    SettingsBoxes& m_boxes;
};
