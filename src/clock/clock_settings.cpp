#include "clock/clock_settings.h"

#include "settings/settings_file.h"
#include "settings/settings_records.h"

ClockStoredSettings readClockSettings(const QString& appPath) {
    using namespace settings_records;
    ClockStoredSettings s;
    if (!SettingsFile::exists(appPath))
        return s;
    SettingsFile file;
    file.openForReading(appPath);
    SettingRecord rec;

    file.read(kClockLocation, rec);
    if (rec.keyIs(keyOf(kClockLocation))) {
        s.hasLocation = true;
        s.top = rec.value1;
        s.left = rec.value2;
    }
    file.read(k24Hour, rec);
    if (rec.keyIs(keyOf(k24Hour))) {
        s.has24Hour = true;
        s.is24Hour = rec.value1 == 1;
    }
    file.read(kEnabledSecond, rec);
    if (rec.keyIs(keyOf(kEnabledSecond))) {
        s.hasEnabledSecond = true;
        s.enabledSecond = rec.value1 == 1;
    }
    file.read(kFontSizeOfClock, rec);
    s.sizeMatched = rec.keyIs(keyOf(kFontSizeOfClock));
    s.sizeValue = rec.value1;
    file.close();
    return s;
}
