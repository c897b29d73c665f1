// Feeds arbitrary bytes to the schedule reader: it must never crash, hang or leak.
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzEngine engine;
    engine.write("future.dat", data, size);
    loadSchedule(engine.ctx, QStringLiteral("future.dat"));
    // Whatever was taken in writes back and reads again without harm; the list stays in date-time order.
    const QStringList rows = engine.ctx.eventList.rows.items();
    for (int i = 1; i < rows.size(); ++i) {
        if (QStringView(rows[i - 1]).mid(11, 19) > QStringView(rows[i]).mid(11, 19))
            __builtin_trap();
    }
    FileError error;
    if (!engine.ctx.eventList.saveToFile(engine.ctx.appFile(QStringLiteral("future.dat")), error))
        __builtin_trap();
    loadSchedule(engine.ctx, QStringLiteral("future.dat"));
    return 0;
}
