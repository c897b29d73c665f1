#include "sound/show_message.h"

#include "engine/context.h"
#include "sound/notices.h"

void showAlarmMessage(Context& ctx, const QString& alarmTime) {
    for (int i = 0; i < ctx.today.messages.count(); ++i) {
        const QString row = ctx.today.messages.item(i);
        QStringView time = QStringView(row).right(8);
        if (ctx.options.noSecond)
            time = time.left(5);
        if (time == alarmTime) {
            ctx.notices.showAlarmWindow(row);
            ctx.today.messages.removeItem(i);
            return;
        }
    }
}
