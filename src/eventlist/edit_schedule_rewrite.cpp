#include "eventlist/edit_schedule_rewrite.h"

#include "engine/context.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "sound/notices.h"

void RewriteScheduleFromList(Context& ctx) {
    FileError error;
    const bool written = ctx.Bwklistbox1.SaveAllEventsToDisk(ctx.appFile(QStringLiteral("future.dat")), error);
    // Emptying the file goes unreported, as it always has.
    if (written || ctx.Bwklistbox1.lstMain.isEmpty())
        return;
    ctx.notices.AnswerOk(QStringLiteral("Error occurred when saving alarm event to disk, ") +
                         QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                         error.description);
}
