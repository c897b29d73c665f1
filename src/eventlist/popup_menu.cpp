#include "eventlist/popup_menu.h"

#include "engine/context.h"
#include "eventlist/save_all_events.h"
#include "sound/notices.h"

namespace {
void warn(Context& ctx, const QString& words) {
    ctx.notices.AnswerOk(words);
    ctx.notices.Beep();
}
} // namespace

void PopupEditClick(Context& ctx, const ShowEditEventFn& showEditEvent) {
    Bwklistbox& list = ctx.Bwklistbox1;
    const int highlighted = list.MultiSelectedItem();
    if (highlighted == 0) {
        warn(ctx, QStringLiteral("Select one alarm event first"));
        return;
    }
    if (highlighted > 1) {
        warn(ctx, QStringLiteral("More than one alarm events highlighted"));
        return;
    }
    list.CrackAlarmEvent();
    if (showEditEvent)
        showEditEvent(list.PlayTimesIs(), list.DateIs(), list.TimeIs(), list.MessageIs());
}

void PopupDeleteClick(Context& ctx) {
    Bwklistbox& list = ctx.Bwklistbox1;
    if (list.MultiSelectedItem() < 1)
        return;
    while (list.MultiSelectedItem() >= 1)
        list.MultiDelete();
    SaveAllEvents(ctx);
}
