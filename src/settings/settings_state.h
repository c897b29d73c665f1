#pragma once

#include <QString>

#include <functional>

// What the Settings window shows: the values of its boxes and which controls stand visible.
struct SettingsBoxes {
    bool soundOnBox = false;
    bool errorPopupsBox = false;
    bool autoLoadBox = false;
    bool noSecondBox = false;
    bool internalSpeakerBox = false;
    bool speakerInsteadOfMidiBox = false;
    int fontButton = 0; // the option button that is set, 1 to 3; none before the first load

    bool errorPopupsBoxVisible = true;
    bool testVisible = false;     // testSpeakerButton and testLabel
    bool firstPageVisible = true; // the three option frames; else autostartFrame
    QString autostartLabel;

    // The font the load found in the file: 1 Arial, 2 Times New Roman, 3 as laid out.
    int appliedFont = 3;
};

// The Settings window's state, kept while the program runs: loading it (also hidden) turns the saved options
// into the options in force.
struct SettingsState {
    SettingsBoxes boxes;
    bool loaded = false;
    // Called after any change, so a window on screen can show it.
    std::function<void()> changed;
};
