#include "eventlist/popup_actions.h"

#include "engine/context.h"
#include "eventlist/save_all_events.h"
#include "recurring/recurring_rows.h"
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
    // OK replaces the highlighted row, so that is the row to show: the keys or a row added for another day can
    // leave the current row elsewhere, and editing it would put its copy in place of a different alarm.
    list.rows.setCurrent(list.rows.firstSelected());
    if (recurring_rows::isRecurringRow(list.rows.item(list.currentRow()))) {
        warn(ctx, QStringLiteral("This alarm comes back: delete it and add it again to change it"));
        return;
    }
    list.crackCurrentRow();
    if (openEditor)
        openEditor(list.crackedMark(), list.crackedDate(), list.crackedTime(), list.crackedMessage());
}

QStringList highlightedRecurringRows(const Context& ctx) {
    QStringList found;
    const ListModel& rows = ctx.eventList.rows;
    for (int i = 0; i < rows.count(); ++i)
        if (rows.isSelected(i) && recurring_rows::isRecurringRow(rows.item(i)))
            found.append(rows.item(i));
    return found;
}

void deleteRecurringRows(Context& ctx, const QStringList& rows, bool wholeSeries) {
    for (const QString& row : rows) {
        if (!ctx.eventList.rows.items().contains(row))
            continue; // gone with a series ended just before
        if (wholeSeries)
            recurring_rows::endSeries(ctx, row);
        else
            recurring_rows::skipDay(ctx, row);
    }
}

void deleteFromPopup(Context& ctx) {
    EventList& list = ctx.eventList;
    // The occurrences of recurring alarms were dealt with by the question before; what is left highlighted of
    // them is not the schedule's to delete.
    for (int i = 0; i < list.rows.count(); ++i)
        if (recurring_rows::isRecurringRow(list.rows.item(i)))
            list.rows.setSelected(i, false);
    // One pass over the rows and one rewrite, however many rows go.
    if (list.removeHighlighted() == 0)
        return;
    saveAllEvents(ctx);
}
