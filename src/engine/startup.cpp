#include "engine/startup.h"

#include "datafiles/data_file.h"
#include "engine/context.h"
#include "platform/numeric.h"
#include "settings/settings_file.h"
#include "settings/settings_options.h"
#include "settings/settings_records.h"
#include "sound/notices.h"

void startUp(Context& ctx, const StartupHooks& hooks) {
    ctx.setStartValues(ctx.folder);
    if (!SettingsFile::exists(ctx.folder))
        return;

    SettingsFile file;
    file.openForReading(ctx.folder);
    FileError error = file.error();
    // Reads go through the shared buffer, as every reader of the settings does.
    SettingRecord& rec = ctx.recordBuffer;
    file.read(settings_records::kSetting, rec);
    const bool autoLoad = rec.valueText().left(6) == QLatin1String("ALAEOn");
    file.read(settings_records::kAllFont, rec);
    const int16_t font = settings_records::fontChoiceOf(rec);
    file.read(settings_records::kShowSmallClock, rec);
    const bool showClock = rec.keyIs(QStringLiteral("[ShowSmallClock]")) && rec.value1 == 1;
    if (file.error().isSet())
        error = file.error();
    file.close();

    // The data file and the options load in this order: the options read the settings file again themselves.
    if (autoLoad)
        loadDataFile(ctx, QStringLiteral("my.dat"));
    ctx.options.fontChoice = font;
    SettingsOptions(ctx).setFontChoice(font);
    if (showClock && hooks.showSmallClock)
        hooks.showSmallClock();

    if (error.isSet())
        ctx.notices.answerOk(QStringLiteral("Error occurred when loading settings from file, ") +
                             QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                             error.description);
}
