#pragma once

#include "settings/setting_record.h"

#include <QString>
#include <cstdint>

// The program-wide variables every window shares.
struct Module1 {
    QString strAppPath; // program folder, with a trailing '/'
    QString strSongName;
    QString strAlarmDate;
    QString strNextAlarm;
    QString strNextPlayTimes;
    bool blnTickOn = false;
    bool blnNeedNextAlarm = false;
    bool blnHaveAlarms = false;
    bool blnForm4Wanted = false;
    bool blnEveryMinutesOn = false;
    int16_t iEveryMinutes = 0;
    int16_t iEveryNext = 0;
    bool blnRepeatPlay = false;
    bool blnSoundOn = false;
    bool blnErrMsgPop = false;
    bool blnNoSecond = false;
    bool blnInternalSpeaker = false;
    bool blnISInsteadMidi = false;
    int16_t iFontChoice = 0;
    bool blnTrayEnabled = false;
    bool blnWithMessage = false;
    int32_t lngTopWho = 0;
    int32_t lngWarnSerial = 0;
    SettingRecord recSetting;

    // The start values set when the program loads.
    void setStartValues(QString appPath);
};

// Members of the hidden procedure window for the event being entered; dropped when it unloads.
struct Form8Members {
    QString strEventTime;
    QString strEventPlay;
    QString strEventMark;
    bool blnLineValid = false;
    bool blnAdded = false;
};
