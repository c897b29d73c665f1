#include "alarmset/day_list_delete.h"

#include "alarmset/alarm_set_links.h"
#include "engine/alarm_event.h"
#include "engine/context.h"

namespace {

bool hasSelectedRow(const Context& ctx) {
    return ctx.today.alarms.currentIndex() >= 0;
}

void retakeHead(Context& ctx) {
    ctx.tick.needNextAlarm = true;
    ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
    ctx.tick.nextAlarm.clear();
    ctx.tick.nextPlayWord.clear();
}

} // namespace

void deleteTodayRow(Context& ctx, const AlarmSetLinks& links) {
    const QString selected = ctx.today.alarms.item(ctx.today.alarms.currentIndex());
    const QStringView time = alarm_event::timeOf(selected);
    QList<int> rows;
    for (int i = 0; i < ctx.today.messages.count(); ++i) {
        if (alarm_event::timeOf(ctx.today.messages.item(i)) == time)
            rows.append(i);
    }
    if (rows.size() > 1) {
        // The user chooses in DeleteChooserWindow; todayList stays out of reach meanwhile.
        links.shadeTodayList();
        links.callChooseMessageToDelete(static_cast<int>(rows.size()), rows);
        return;
    }
    if (!hasSelectedRow(ctx))
        return;
    if (rows.size() == 1)
        ctx.today.messages.removeItem(rows.first());
    ctx.today.alarms.removeItem(ctx.today.alarms.currentIndex());
}

void deleteSelectedRow(Context& ctx, const AlarmSetLinks& links) {
    if (hasSelectedRow(ctx))
        deleteTodayRow(ctx, links);
    retakeHead(ctx);
}

void deleteAllToday(Context& ctx) {
    ctx.today.alarms.clear();
    ctx.today.messages.clear();
    ctx.tick.needNextAlarm = true;
    ctx.tick.haveAlarms = false;
    ctx.tick.nextAlarm.clear();
    ctx.tick.nextPlayWord.clear();
}

void openRowMessages(Context& ctx, const AlarmSetLinks& links) {
    if (!hasSelectedRow(ctx) || ctx.front.claimant != 0)
        return;
    links.shadeTodayList();
    links.callOpenInputMessage(QStringLiteral("DoubleClick"));
}
