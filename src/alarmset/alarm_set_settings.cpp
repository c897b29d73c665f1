#include "alarmset/alarm_set_settings.h"

#include "engine/context.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "settings/settings_file.h"
#include "settings/settings_options.h"
#include "settings/settings_records.h"

using namespace settings_records;

void loadAlarmSetSettings(Context& ctx, AlarmSetLoadResult& result) {
    result.amPm = ctx.clock.now().time().hour() >= 12 ? QStringLiteral("PM") : QStringLiteral("AM");
    const QString& appPath = ctx.folder;
    if (!SettingsFile::exists(appPath))
        return;
    // Read errors leave the defaults in force and are not reported.
    SettingRecord& rec = ctx.recordBuffer;
    if (readRecord(appPath, kTimeInputLoc, rec)) {
        result.havePosition = true;
        result.top = rec.value1;
        result.left = rec.value2;
    } else {
        rec.value1 = 0;
        rec.value2 = 0;
    }
    if (readRecord(appPath, kSongName, rec))
        ctx.soundChoice.songPath = appPath + rec.valueText() + QStringLiteral(".wav");
    if (readRecord(appPath, kSetting, rec)) {
        // Taken before SettingsWindow is touched: its own load reads into the same buffer.
        const bool soundOn = rec.value1 == 1;
        const bool errorPopups = rec.value2 == 1;
        SettingsOptions(ctx).setSoundOn(soundOn);
        SettingsOptions(ctx).setErrorPopups(errorPopups);
    }
}

void storeAlarmSetPlace(Context& ctx, double topTwips, double leftTwips, const ListModel& todayList) {
    // A failed write is silent: the window opens at its laid-out place next time.
    writeTimeInputLoc(ctx, static_cast<int32_t>(roundHalfEven(topTwips)),
                      static_cast<int32_t>(roundHalfEven(leftTwips)));
    ctx.tick.alarmSetWanted = !todayList.item(0).isEmpty();
}

ControlFont alarmSetControlFont(Context& ctx) {
    if (!SettingsFile::exists(ctx.folder))
        return {};
    SettingRecord& rec = ctx.recordBuffer;
    // Only the value counts here, not the key.
    readRecord(ctx.folder, kAllFont, rec);
    switch (fontChoiceOf(rec)) {
    case 1:
        return {QStringLiteral("Arial"), 0};
    case 2:
        return {QStringLiteral("Times New Roman"), 10};
    default:
        return {};
    }
}

void loadAlarmSetData(Context& ctx) {
    ctx.entry.lastPlayWord = QStringLiteral("once");
    AlarmSetLoadResult settings;
    loadAlarmSetSettings(ctx, settings);
    ctx.entry.date = ctx.clock.dateText();
    loadSchedule(ctx, QStringLiteral("future.dat"));
    ctx.entry.date = ctx.clock.dateText();
}
