#pragma once

class Context;
struct AlarmSetLinks;

// Removes the selected row of todayList with its message; several messages of its time go to DeleteChooserWindow to
// choose.
void deleteTodayRow(Context& ctx, const AlarmSetLinks& links);
// deleteButton: the selected row goes, and the tick takes row 0 anew, selection or not.
void deleteSelectedRow(Context& ctx, const AlarmSetLinks& links);
// deleteAllButton: both of today's lists are emptied, without a question.
void deleteAllToday(Context& ctx);
// A double click on todayList opens the messages of the selected row's time in InputMessageWindow.
void openRowMessages(Context& ctx, const AlarmSetLinks& links);
