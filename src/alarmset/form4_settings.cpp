#include "alarmset/form4_settings.h"

#include "engine/context.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "settings/settings_file.h"
#include "settings/settings_records.h"

using namespace settings_records;

void fForm4Load(Context& ctx, Form4LoadResult& result) {
    result.txtAm = ctx.clock.now().time().hour() >= 12 ? QStringLiteral("PM") : QStringLiteral("AM");
    const QString& appPath = ctx.m.strAppPath;
    if (!SettingsFile::exists(appPath))
        return;
    // Read errors leave the defaults in force and are not reported.
    SettingRecord& rec = ctx.m.recSetting;
    if (readRecord(appPath, kTimeInputLoc, rec)) {
        result.havePosition = true;
        result.top = rec.lngValue1;
        result.left = rec.lngValue2;
    } else {
        rec.lngValue1 = 0;
        rec.lngValue2 = 0;
    }
    if (readRecord(appPath, kSongName, rec))
        ctx.m.strSongName = appPath + rec.valueText() + QStringLiteral(".wav");
    if (readRecord(appPath, kSetting, rec)) {
        // Taken before Form7 is touched: its own load reads into the same buffer.
        const bool soundOn = rec.lngValue1 == 1;
        const bool errMsgPop = rec.lngValue2 == 1;
        ctx.form7.SetSoundOn(ctx, soundOn);
        ctx.form7.SetErrMsgPop(ctx, errMsgPop);
    }
}

void fForm4ExitClick(Context& ctx, double topTwips, double leftTwips, const ListModel& lstData) {
    // A failed write is silent: the window opens at its laid-out place next time.
    writeTimeInputLoc(ctx, static_cast<int32_t>(roundHalfEven(topTwips)),
                      static_cast<int32_t>(roundHalfEven(leftTwips)));
    ctx.m.blnForm4Wanted = !lstData.item(0).isEmpty();
}

ControlFont Form4ControlFont(Context& ctx) {
    if (!SettingsFile::exists(ctx.m.strAppPath))
        return {};
    SettingRecord& rec = ctx.m.recSetting;
    // Only the value counts here, not the key.
    readRecord(ctx.m.strAppPath, kAllFont, rec);
    switch (fontChoiceOf(rec)) {
    case 1:
        return {QStringLiteral("Arial"), 0};
    case 2:
        return {QStringLiteral("Times New Roman"), 10};
    default:
        return {};
    }
}
