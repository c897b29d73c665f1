// Feeds arbitrary bytes to the settings records and the options that read them.
#include "engine/context.h"
#include "fuzz_support.h"
#include "settings/settings_file.h"
#include "settings/settings_options.h"
#include "settings/settings_records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzEngine engine;
    engine.write("tolm.ini", data, size);
    for (int n = 1; n <= settings_records::kRecordCount + 1; ++n) {
        SettingRecord rec;
        settings_records::readRecord(engine.ctx.folder, n, rec);
        // A record encodes back to its 55 bytes.
        if (SettingsFile::encode(rec).size() != SettingRecord::kLength)
            __builtin_trap();
        (void)rec.keyText();
        (void)rec.valueText();
    }
    SettingsOptions(engine.ctx).load();
    return 0;
}
