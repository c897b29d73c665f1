#include "eventlist/save_all_events.h"

#include "engine/context.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "sound/notices.h"

bool saveAllEvents(Context& ctx) {
    FileError error;
    if (ctx.eventList.saveToFile(ctx.appFile(QStringLiteral("future.dat")), error))
        return true;
    // Emptying the file of an empty list is never reported, even when it fails.
    if (ctx.eventList.rows.isEmpty())
        return false;
    ctx.notices.answerOk(QStringLiteral("Error occurred when saving alarm event to disk, ") +
                         QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                         error.description);
    return false;
}
