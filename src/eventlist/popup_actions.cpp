#include "eventlist/popup_actions.h"

#include "engine/context.h"
#include "eventlist/save_all_events.h"
#include "sound/notices.h"

namespace {
void warn(Context& ctx, const QString& words) {
    ctx.notices.answerOk(words);
    ctx.notices.beep();
}
} // namespace

void editFromPopup(Context& ctx, const OpenEditorFn& openEditor) {
    EventList& list = ctx.eventList;
    const int highlighted = list.highlightedCount();
    if (highlighted == 0) {
        warn(ctx, QStringLiteral("Select one alarm event first"));
        return;
    }
    if (highlighted > 1) {
        warn(ctx, QStringLiteral("More than one alarm events highlighted"));
        return;
    }
    list.crackCurrentRow();
    if (openEditor)
        openEditor(list.crackedMark(), list.crackedDate(), list.crackedTime(), list.crackedMessage());
}

void deleteFromPopup(Context& ctx) {
    EventList& list = ctx.eventList;
    // One pass over the rows and one rewrite, however many rows go.
    if (list.removeHighlighted() == 0)
        return;
    saveAllEvents(ctx);
}
