// Feeds arbitrary bytes to the data file reader.
#include "datafiles/data_file.h"
#include "engine/context.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzEngine engine;
    engine.write("my.dat", data, size);
    loadDataFile(engine.ctx, QStringLiteral("my.dat"));
    // The day's list stays in time order whatever the file held.
    const QStringList rows = engine.ctx.today.alarms.items();
    for (int i = 1; i < rows.size(); ++i) {
        if (QStringView(rows[i - 1]).right(8) > QStringView(rows[i]).right(8))
            __builtin_trap();
    }
    return 0;
}
