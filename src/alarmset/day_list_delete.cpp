#include "alarmset/day_list_delete.h"

#include "alarmset/form4_links.h"
#include "engine/alarm_event.h"
#include "engine/context.h"

namespace {

bool hasSelectedRow(const Context& ctx) {
    return ctx.lstData.listIndex() >= 0;
}

void retakeHead(Context& ctx) {
    Module1& m = ctx.m;
    m.blnNeedNextAlarm = true;
    m.blnHaveAlarms = ctx.lstData.count() > 0;
    m.strNextAlarm.clear();
    m.strNextPlayTimes.clear();
}

} // namespace

void cClearMsg(Context& ctx, const Form4Links& links) {
    const QString selected = ctx.lstData.item(ctx.lstData.listIndex());
    const QStringView time = alarm_event::timeOf(selected);
    QList<int> rows;
    for (int i = 0; i < ctx.lstMessage.count(); ++i) {
        if (alarm_event::timeOf(ctx.lstMessage.item(i)) == time)
            rows.append(i);
    }
    if (rows.size() > 1) {
        // The user chooses in Form12; lstData stays out of reach meanwhile.
        links.shadeDataList();
        links.callGetAllMessages(static_cast<int>(rows.size()), rows);
        return;
    }
    if (!hasSelectedRow(ctx))
        return;
    if (rows.size() == 1)
        ctx.lstMessage.removeItem(rows.first());
    ctx.lstData.removeItem(ctx.lstData.listIndex());
}

void DeleteClick(Context& ctx, const Form4Links& links) {
    if (hasSelectedRow(ctx))
        cClearMsg(ctx, links);
    retakeHead(ctx);
}

void DeleteAllClick(Context& ctx) {
    ctx.lstData.clear();
    ctx.lstMessage.clear();
    ctx.m.blnNeedNextAlarm = true;
    ctx.m.blnHaveAlarms = false;
    ctx.m.strNextAlarm.clear();
    ctx.m.strNextPlayTimes.clear();
}

void DataDblClick(Context& ctx, const Form4Links& links) {
    if (!hasSelectedRow(ctx) || ctx.m.lngTopWho != 0)
        return;
    links.shadeDataList();
    links.callGetOldMessageToTextbox(QStringLiteral("DoubleClick"));
}
