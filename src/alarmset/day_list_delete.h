#pragma once

class Context;
struct Form4Links;

// Removes the selected row of lstData with its message; several messages of its time go to Form12 to choose.
void cClearMsg(Context& ctx, const Form4Links& links);
// cmdDelete: the selected row goes, and the tick takes row 0 anew, selection or not.
void DeleteClick(Context& ctx, const Form4Links& links);
// cmdDeleteAll: both of today's lists are emptied, without a question.
void DeleteAllClick(Context& ctx);
// A double click on lstData opens the messages of the selected row's time in Form5.
void DataDblClick(Context& ctx, const Form4Links& links);
