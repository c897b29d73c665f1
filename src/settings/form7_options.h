#pragma once

#include <QString>

#include <functional>

class Context;

// What the Settings window shows: the values of its boxes and which controls stand visible.
struct Form7State {
    bool chkSoundOn = false;
    bool chkErrMsgPop = false;
    bool chkAutoLoad = false;
    bool chkNoSec = false;
    bool chkInternalSpeaker = false;
    bool chkISInsteadMidi = false;
    int optFont = 0; // the option button that is set, 1 to 3; none before the first load

    bool chkErrMsgPopVisible = true;
    bool testVisible = false; // cmdPlayIS and lblTest
    bool page1Visible = true; // Frame1, Frame2 and Frame3; else fraLoadBwk
    QString lblLoadBwk;

    // The font the load found in the file: 1 Arial, 2 Times New Roman, 3 as laid out.
    int appliedFont = 3;
};

// The Settings window without its widgets. Loading it turns the saved options into the shared variables,
// so start-up loads it hidden; the window on screen shows and edits this same object.
class Form7Options {
public:
    bool loaded() const { return m_loaded; }
    // Loads it the first time anything touches it; true when this touch loaded it.
    bool Touch(Context& ctx);
    // Design values, then the boxes from the variables and from records 4 and 8.
    void Load(Context& ctx);
    // Saves records 4 and 8 and unloads. Ending the program without closing saves nothing.
    void Close(Context& ctx);

    const Form7State& state() const { return m_s; }

    // Setting a box loads the window if needed and runs the box's click logic when its value changes.
    void SetSoundOn(Context& ctx, bool ticked);
    void SetErrMsgPop(Context& ctx, bool ticked);
    void SetAutoLoad(Context& ctx, bool ticked);
    void SetNoSec(Context& ctx, bool ticked);
    void SetInternalSpeaker(Context& ctx, bool ticked);
    void SetISInsteadMidi(Context& ctx, bool ticked);
    // Setting an option button always runs its click.
    void SetFont(Context& ctx, int index);

    void NextClick();
    void PlayISClick(Context& ctx);
    // Autostart on or off; the words and the beep come whatever the result.
    void RunClick(Context& ctx, const QString& programPath);
    void NoRunClick(Context& ctx);

    // Called after any change, so a window on screen can show it.
    std::function<void()> changed;

private:
    bool set(Context& ctx, bool Form7State::*box, bool ticked);
    void applyTestRule();
    void autostartDone(Context& ctx);
    void notify();

    Form7State m_s;
    bool m_loaded = false;
};
