#include "alarmset/message_view.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/list_model.h"
#include "platform/clock.h"

void toggleMessageView(Context& ctx, MessageView& view) {
    // A copy, so that two rows of one time each get a message of their own.
    ctx.today.shadowMessages.clear();
    for (const QString& row : ctx.today.messages.items())
        ctx.today.shadowMessages.addItem(row);

    if (!view.visible) {
        if (!ctx.today.alarms.item(0).isEmpty()) {
            for (const QString& row : ctx.today.alarms.items()) {
                const QString time = alarm_event::timeOf(row).toString();
                view.text += QStringLiteral("\r\n") + alarm_event::viewMarkFromTodayRow(row) + twelveHourTime(time);
                appendShadowMessage(ctx, time, view.text);
            }
            view.visible = true;
            view.caption = QStringLiteral("Hide Messages");
        }
    } else {
        view.visible = false;
        view.text.clear();
        view.caption = QStringLiteral("View Messages");
    }
    ctx.today.shadowMessages.clear();
}

void appendShadowMessage(Context& ctx, const QString& time, QString& messageView) {
    ListModel& shadow = ctx.today.shadowMessages;
    for (int i = 0; i < shadow.count(); ++i) {
        const QString row = shadow.item(i);
        if (alarm_event::timeOf(row) == time) {
            // The box shows what fits of a message: a message of megabytes from a hand-made schedule would
            // hold the box's layout up for many seconds. Typed messages are far shorter than this.
            const QStringView message = QStringView(row).left(qMax<qsizetype>(0, row.size() - 12));
            messageView += QStringLiteral("  /  ");
            messageView += message.left(ListModel::kShownLength);
            shadow.removeItem(i);
            return;
        }
    }
}
