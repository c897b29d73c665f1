#pragma once

// What the engine asks of the Alarm Set window when there is one on screen.
class Form4Ui {
public:
    virtual ~Form4Ui() = default;
    // Builds the window; its load reads the schedule (Form4LoadCore).
    virtual void Load() = 0;
    // A request to unload, which the window turns into hiding itself.
    virtual void RequestUnload() = 0;
    // The chime's controls changed in the engine (interval box enabled or not).
    virtual void EveryControlsChanged() = 0;
    // No-second mode hides the seconds box and its colon; the other mode shows them.
    virtual void SetNoSecondMode(bool on) = 0;
    // lstData hides under the hourglass while the message or delete window works on its current row (true),
    // and comes back when that window closes (false).
    virtual void SetDataListShaded(bool shaded) { (void)shaded; }
};
