#include "engine/startup.h"

#include "datafiles/data_file.h"
#include "engine/context.h"
#include "platform/numeric.h"
#include "settings/settings_file.h"
#include "settings/settings_records.h"
#include "sound/notices.h"

void fForm1Load(Context& ctx, const StartupHooks& hooks) {
    ctx.m.setStartValues(ctx.m.strAppPath);
    if (!SettingsFile::exists(ctx.m.strAppPath))
        return;

    SettingsFile file;
    file.openForReading(ctx.m.strAppPath);
    FileError error = file.error();
    // Reads go through the shared buffer, as every reader of the settings does.
    SettingRecord& rec = ctx.m.recSetting;
    file.read(settings_records::kSetting, rec);
    const bool autoLoad = rec.valueText().left(6) == QLatin1String("ALAEOn");
    file.read(settings_records::kAllFont, rec);
    const int16_t font = settings_records::fontChoiceOf(rec);
    file.read(settings_records::kShowSmallClock, rec);
    const bool showClock = rec.keyIs(QStringLiteral("[ShowSmallClock]")) && rec.lngValue1 == 1;
    if (file.error().isSet())
        error = file.error();
    file.close();

    // The data file and the options load in this order: the options read the settings file again themselves.
    if (autoLoad)
        LoadClick(ctx, QStringLiteral("my.dat"));
    ctx.m.iFontChoice = font;
    ctx.form7.SetFont(ctx, font);
    if (showClock && hooks.showSmallClock)
        hooks.showSmallClock();

    if (error.isSet())
        ctx.notices.AnswerOk(QStringLiteral("Error occurred when loading settings from file, ") +
                             QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                             error.description);
}
