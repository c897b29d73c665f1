#pragma once

#include <QString>
#include <cstdint>

// What the clock finds of its own records in tolm.ini when it loads. A record counts only when its
// trimmed key matches; without the file every default stands.
struct ClockStoredSettings {
    bool hasLocation = false; // the location record: top, left in twips
    int32_t top = 0;
    int32_t left = 0;
    bool has24Hour = false; // "[24Hour]": only 1 means on
    bool is24Hour = false;
    bool hasEnabledSecond = false; // "[EnabledSecond]": only 1 means on
    bool enabledSecond = false;
    bool sizeMatched = false; // "[FontSizeOfClock]"
    int32_t sizeValue = 0;    // value1 of that record as read, key or no key
};

// One open of the file, records 5, 9, 10 and 11 in that order; errors are ignored.
ClockStoredSettings readClockSettings(const QString& appPath);
