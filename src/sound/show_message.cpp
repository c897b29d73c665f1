#include "sound/show_message.h"

#include "engine/context.h"
#include "sound/notices.h"

void sShowMsg(Context& ctx, const QString& tTime) {
    for (int i = 0; i < ctx.lstMessage.count(); ++i) {
        const QString row = ctx.lstMessage.item(i);
        QStringView time = QStringView(row).right(8);
        if (ctx.m.blnNoSecond)
            time = time.left(5);
        if (time == tTime) {
            ctx.notices.ShowAlarmWindow(row);
            ctx.lstMessage.removeItem(i);
            return;
        }
    }
}
