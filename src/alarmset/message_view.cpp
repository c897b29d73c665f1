#include "alarmset/message_view.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "platform/clock.h"

void ViewMClick(Context& ctx, MessageView& view) {
    // A copy, so that two rows of one time each get a message of their own.
    ctx.lstShadowMessage.clear();
    for (const QString& row : ctx.lstMessage.items())
        ctx.lstShadowMessage.addItem(row);

    if (!view.visible) {
        if (!ctx.lstData.item(0).isEmpty()) {
            for (const QString& row : ctx.lstData.items()) {
                const QString time = alarm_event::timeOf(row).toString();
                view.text += QStringLiteral("\r\n") + alarm_event::viewMarkFromTodayRow(row) + twelveHourTime(time);
                AppendShadowMessage(ctx, time, view.text);
            }
            view.visible = true;
            view.caption = QStringLiteral("Hide Messages");
        }
    } else {
        view.visible = false;
        view.text.clear();
        view.caption = QStringLiteral("View Messages");
    }
    ctx.lstShadowMessage.clear();
}

void AppendShadowMessage(Context& ctx, const QString& time, QString& txtViewM) {
    ListModel& shadow = ctx.lstShadowMessage;
    for (int i = 0; i < shadow.count(); ++i) {
        const QString row = shadow.item(i);
        if (alarm_event::timeOf(row) == time) {
            txtViewM += QStringLiteral("  /  ") + alarm_event::messageOfMessageRow(row);
            shadow.removeItem(i);
            return;
        }
    }
}
